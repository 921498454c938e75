// Base of the framework's reference-counted objects. The creator holds the
// first reference; whoever stores a pointer takes one more with lock() and
// gives it back with release(), which deletes the object with the last one.
#pragma once

#include <atomic>

class OsiReferenceCount
{
public:
	OsiReferenceCount() = default;
	OsiReferenceCount(const OsiReferenceCount&) = delete;
	OsiReferenceCount& operator=(const OsiReferenceCount&) = delete;
	virtual ~OsiReferenceCount() = default;

	void lock() { count.fetch_add(1); }
	// Gives a reference back; true when it was the last one.
	bool unlock() { return count.fetch_sub(1) - 1 == 0; }
	// Gives a reference back and deletes the object with the last one.
	void release()
	{
		if (unlock())
			delete this;
	}
	long referenceCount() const { return count.load(); }

private:
	std::atomic<long> count{1};
};
