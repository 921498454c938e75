// An intrusive ring of callbacks. A notifier walks the ring from its head,
// newest member first, until a callback claims the message; a member may
// unlink (or delete) itself from inside its callback without stopping the walk.
// A ring is used from one thread at a time.
#pragma once

class OsiCallbackInstance
{
public:
	using Callback = bool (*)(void* data, void* message);

	// The head of a ring: holds no callback, reference count 1.
	OsiCallbackInstance() = default;
	// A member: reference count 0, a ring of one until linked.
	OsiCallbackInstance(Callback callback, void* data);
	// The same callback and data, in a ring of its own.
	OsiCallbackInstance(const OsiCallbackInstance& other);
	OsiCallbackInstance& operator=(const OsiCallbackInstance&) = delete;
	virtual ~OsiCallbackInstance();

	// Splices member's ring in right after this head (null is ignored).
	void link(const OsiCallbackInstance* member);
	// Takes this member out of its ring.
	void unlink();
	// Calls the members' callbacks until one returns true; false when none did.
	bool notify(void* message);

	bool isLinked() const { return next != this; }
	void lock() { ++referenceCount; }
	// True when the last reference went.
	bool unlock() { return --referenceCount <= 0; }

private:
	int referenceCount = 1;
	mutable OsiCallbackInstance* next = this;
	mutable OsiCallbackInstance* previous = this;
	// The walk position of a notification now calling this member.
	mutable OsiCallbackInstance** cursor = nullptr;
	void* data = nullptr;
	Callback callback = nullptr;
};
