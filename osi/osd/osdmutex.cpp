#include "osi/osd/osdmutex.h"

OsdMutex::OsdMutex(const char* name) : mutexName(name ? name : ""), semaphore(name, 1, 1) {}

bool OsdMutex::ownedByCaller() const
{
	return owner.load() == osdCurrentThread();
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
		owner.store(osdCurrentThread());
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
		owner.store(0);
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
