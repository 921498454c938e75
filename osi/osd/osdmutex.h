// A recursive mutex built on a semaphore of one unit, so that waits can time out.
#pragma once

#include "osi/base/referencecount.h"
#include "osi/osd/osdsemaphore.h"
#include "osi/osd/osdthreadid.h"

#include <atomic>
#include <string>

class OsdMutex : public OsiReferenceCount
{
public:
	explicit OsdMutex(const char* name);

	bool isValid() const { return semaphore.isValid(); }
	const std::string& name() const { return mutexName; }

	// The owner enters again at once; any other thread waits up to the
	// time-out (OsdInfiniteWait: no limit). 0 when the mutex is held.
	int wait(unsigned int milliseconds) const;
	// Leaves the mutex once; only its owner can.
	void release() const;

private:
	bool ownedByCaller() const;

	std::string mutexName;
	// Read by any thread to recognise re-entry; written by the owner only.
	mutable std::atomic<OsdThreadId> owner{0};
	mutable int depth = 0;
	mutable OsdSemaphore semaphore;
};

// Holds a mutex for the life of a scope when the wait succeeds.
class OsdWaitOnMutex
{
public:
	OsdWaitOnMutex(const OsdMutex* mutex, unsigned int milliseconds);
	~OsdWaitOnMutex();
	OsdWaitOnMutex(const OsdWaitOnMutex&) = delete;
	OsdWaitOnMutex& operator=(const OsdWaitOnMutex&) = delete;

	int status() const { return waitStatus; }
	bool acquired() const { return waitStatus == 0; }

private:
	int waitStatus = OsdWaitInvalid;
	const OsdMutex* held = nullptr;
};
