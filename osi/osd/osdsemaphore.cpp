#include "osi/osd/osdsemaphore.h"

#include <sys/time.h>

#include <cerrno>

namespace {

constexpr int waitTimedOut = 1;
constexpr int waitFailed = 2;

// The deadline of a wait, measured on the time of day as the condition is.
timespec deadlineAfter(unsigned int milliseconds)
{
	timeval now;
	gettimeofday(&now, nullptr);
	long long nanoseconds =
	    static_cast<long long>(now.tv_usec) * 1000 + (milliseconds % 1000) * 1000000LL;
	timespec deadline;
	deadline.tv_sec = now.tv_sec + milliseconds / 1000 + nanoseconds / 1000000000LL;
	deadline.tv_nsec = static_cast<long>(nanoseconds % 1000000000LL);
	return deadline;
}

} // namespace

OsdSemaphore::OsdSemaphore(const char* name, int initial, int maximumCount)
: semaphoreName(name ? name : "")
{
	if (initial > maximumCount)
		return;
	maximum = maximumCount;
	conditionCreated = pthread_cond_init(&condition, nullptr) == 0;
	attributeCreated = pthread_mutexattr_init(&attribute) == 0;
	if (attributeCreated)
	{
		pthread_mutexattr_settype(&attribute, PTHREAD_MUTEX_ERRORCHECK);
		mutexCreated = pthread_mutex_init(&mutex, &attribute) == 0;
	}
	signal(initial);
}

OsdSemaphore::~OsdSemaphore()
{
	if (mutexCreated)
		pthread_mutex_destroy(&mutex);
	if (attributeCreated)
		pthread_mutexattr_destroy(&attribute);
	if (conditionCreated)
		pthread_cond_destroy(&condition);
}

void OsdSemaphore::unlockOnCancel(void* mutex)
{
	pthread_mutex_unlock(static_cast<pthread_mutex_t*>(mutex));
}

int OsdSemaphore::waitOnSemaphore(unsigned int milliseconds)
{
	if (!isValid())
		return OsdWaitInvalid;
	const timespec deadline = deadlineAfter(milliseconds);
	if (pthread_mutex_lock(&mutex) != 0)
		return waitFailed;
	int status = 0;
	pthread_cleanup_push(unlockOnCancel, &mutex);
	while (current == 0 && status == 0)
	{
		const int result = milliseconds == OsdInfiniteWait
		                       ? pthread_cond_wait(&condition, &mutex)
		                       : pthread_cond_timedwait(&condition, &mutex, &deadline);
		if (result == ETIMEDOUT)
			status = waitTimedOut;
		else if (result != 0)
			status = waitFailed;
	}
	// A unit that arrived together with the time-out is still taken.
	if (current > 0)
	{
		--current;
		status = 0;
	}
	pthread_cleanup_pop(1);
	return status;
}

bool OsdSemaphore::signal(long n)
{
	if (!isValid() || n < 1)
		return false;
	if (pthread_mutex_lock(&mutex) != 0)
		return false;
	const long room = maximum - current;
	const int added = static_cast<int>(n < room ? n : room);
	current += added;
	// One waiter per unit added: waking only on a rise from 0 would leave a
	// second waiter asleep when two signals come before the first one runs.
	for (int i = 0; i < added; ++i)
		pthread_cond_signal(&condition);
	pthread_mutex_unlock(&mutex);
	return true;
}

int OsdSemaphore::count() const
{
	if (!isValid() || pthread_mutex_lock(&mutex) != 0)
		return 0;
	const int value = current;
	pthread_mutex_unlock(&mutex);
	return value;
}

OsdWaitOnSemaphore::OsdWaitOnSemaphore(OsdSemaphore* semaphore, unsigned int milliseconds)
{
	if (semaphore && semaphore->isValid())
		waitStatus = semaphore->waitOnSemaphore(milliseconds);
}
