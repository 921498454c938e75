// The recursive spin-and-yield lock that guards the framework's registries,
// and the atomic addition behind its reference counts.
#pragma once

#include "osi/osd/osdthreadid.h"

#include <atomic>
#include <cstdint>

// A zero-filled lock is a free lock, so a static OsdAtomicLock needs no
// constructor to run before first use.
struct OsdAtomicLock
{
	std::atomic<int32_t> entryCount{0};
	std::atomic<int32_t> guard{0};
	int32_t depth = 0;
	OsdThreadId owner = 0;
};

// Takes the lock; a thread that owns it already enters again. Without wait a
// lock held by another thread fails at once; with wait the caller yields and
// retries until the lock is free.
bool atomicLock(OsdAtomicLock* lock, bool wait);

// Leaves the lock once; only its owner can. It is free again after as many
// unlocks as there were locks.
void atomicUnlock(OsdAtomicLock* lock);

// Adds increment to *value atomically and returns the new value.
long atomicAdd(long volatile* value, long increment);

// Holds an OsdAtomicLock (waiting for it) for the life of a scope.
class OsdAtomicLockScope
{
public:
	explicit OsdAtomicLockScope(OsdAtomicLock& lock) : lock(lock) { atomicLock(&lock, true); }
	~OsdAtomicLockScope() { atomicUnlock(&lock); }
	OsdAtomicLockScope(const OsdAtomicLockScope&) = delete;
	OsdAtomicLockScope& operator=(const OsdAtomicLockScope&) = delete;

private:
	OsdAtomicLock& lock;
};
