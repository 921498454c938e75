// Base of the framework's reference-counted objects, also of the interface
// objects handed between modules. The creator holds the first reference;
// whoever stores a pointer takes one more with lock(). unlock() gives one
// back and reports the last, after which the holder calls destroy(); release()
// does both. The three are virtual so that a call from another module runs the
// code of the module that made the object.
#pragma once

#include <atomic>

class OsiReferenceCount
{
public:
	OsiReferenceCount(const OsiReferenceCount&) = delete;
	OsiReferenceCount& operator=(const OsiReferenceCount&) = delete;

	// Takes a reference; the count starts at 1.
	virtual void lock() { count.fetch_add(1); }
	// Gives a reference back; true when the count has become exactly 0.
	virtual bool unlock() { return count.fetch_sub(1) == 1; }
	virtual void destroy() { delete this; }

	// Gives a reference back and destroys the object with the last one.
	void release()
	{
		if (unlock())
			destroy();
	}
	long referenceCount() const { return count.load(); }

protected:
	OsiReferenceCount() = default;
	virtual ~OsiReferenceCount() = default;

private:
	std::atomic<long> count{1};
};
