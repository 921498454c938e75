#include "osi/osd/osdatomic.h"

#include <sched.h>

namespace {

void yieldProcessor()
{
	sched_yield();
}

// The guard serialises the short reads and writes of owner and depth.
void takeGuard(OsdAtomicLock* lock)
{
	while (lock->guard.fetch_add(1) + 1 != 1)
	{
		lock->guard.fetch_sub(1);
		yieldProcessor();
	}
}

void dropGuard(OsdAtomicLock* lock)
{
	lock->guard.fetch_sub(1);
}

} // namespace

bool atomicLock(OsdAtomicLock* lock, bool wait)
{
	const OsdThreadId self = osdCurrentThread();
	for (;;)
	{
		if (lock->entryCount.fetch_add(1) + 1 == 1)
		{
			takeGuard(lock);
			lock->owner = self;
			lock->depth = 1;
			dropGuard(lock);
			return true;
		}
		takeGuard(lock);
		if (lock->depth > 0 && lock->owner == self)
		{
			// The entry count keeps this thread's added 1 for the matching unlock.
			++lock->depth;
			dropGuard(lock);
			return true;
		}
		dropGuard(lock);
		lock->entryCount.fetch_sub(1);
		if (!wait)
			return false;
		yieldProcessor();
	}
}

void atomicUnlock(OsdAtomicLock* lock)
{
	takeGuard(lock);
	if (lock->depth > 0 && lock->owner == osdCurrentThread())
	{
		lock->entryCount.fetch_sub(1);
		if (--lock->depth < 1)
		{
			lock->owner = 0;
			lock->depth = 0;
		}
	}
	dropGuard(lock);
}

long atomicAdd(long volatile* value, long increment)
{
	return __atomic_add_fetch(value, increment, __ATOMIC_SEQ_CST);
}
