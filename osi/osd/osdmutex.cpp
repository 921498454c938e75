#include "osi/osd/osdmutex.h"

OsdMutex::OsdMutex(const char* name) : mutexName(name ? name : ""), semaphore(name, 1, 1) {}

bool OsdMutex::ownedByCaller() const
{
	return pthread_equal(owner.load(), pthread_self()) != 0;
}

int OsdMutex::wait(unsigned int milliseconds) const
{
	if (ownedByCaller())
	{
		++depth;
		return 0;
	}
	const int status = semaphore.waitOnSemaphore(milliseconds);
	if (status == 0)
	{
		owner.store(pthread_self());
		depth = 1;
	}
	return status;
}

void OsdMutex::release() const
{
	if (!ownedByCaller())
		return;
	if (--depth == 0)
	{
		owner.store(pthread_t{});
		semaphore.signal(1);
	}
}

OsdWaitOnMutex::OsdWaitOnMutex(const OsdMutex* mutex, unsigned int milliseconds)
{
	if (!mutex || !mutex->isValid())
		return;
	waitStatus = mutex->wait(milliseconds);
	if (waitStatus == 0)
		held = mutex;
}

OsdWaitOnMutex::~OsdWaitOnMutex()
{
	if (held)
		held->release();
}
