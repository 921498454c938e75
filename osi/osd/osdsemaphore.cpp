#include "osi/osd/osdsemaphore.h"

#include <pthread.h>
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

void unlockOnCancel(void* mutex)
{
	pthread_mutex_unlock(static_cast<pthread_mutex_t*>(mutex));
}

} // namespace

struct OsdSemaphore::Platform
{
	// Creates nothing for an unusable semaphore.
	explicit Platform(bool usable)
	{
		if (!usable)
			return;
		conditionCreated = pthread_cond_init(&condition, nullptr) == 0;
		attributeCreated = pthread_mutexattr_init(&attribute) == 0;
		if (attributeCreated)
		{
			pthread_mutexattr_settype(&attribute, PTHREAD_MUTEX_ERRORCHECK);
			mutexCreated = pthread_mutex_init(&mutex, &attribute) == 0;
		}
	}
	~Platform()
	{
		if (mutexCreated)
			pthread_mutex_destroy(&mutex);
		if (attributeCreated)
			pthread_mutexattr_destroy(&attribute);
		if (conditionCreated)
			pthread_cond_destroy(&condition);
	}
	Platform(const Platform&) = delete;
	Platform& operator=(const Platform&) = delete;

	bool isValid() const { return conditionCreated && attributeCreated && mutexCreated; }

	pthread_mutex_t mutex;
	pthread_mutexattr_t attribute;
	pthread_cond_t condition;
	bool conditionCreated = false;
	bool attributeCreated = false;
	bool mutexCreated = false;
	int current = 0;
	int maximum = 0;
};

OsdSemaphore::OsdSemaphore(const char* name, int initial, int maximumCount)
: platform(std::make_unique<Platform>(initial <= maximumCount)),
  semaphoreName(name ? name : "")
{
	if (!platform->isValid())
		return;
	platform->maximum = maximumCount;
	signal(initial);
}

OsdSemaphore::~OsdSemaphore() = default;

bool OsdSemaphore::isValid() const
{
	return platform->isValid();
}

int OsdSemaphore::waitOnSemaphore(unsigned int milliseconds)
{
	if (!isValid())
		return OsdWaitInvalid;
	Platform& p = *platform;
	const timespec deadline = deadlineAfter(milliseconds);
	if (pthread_mutex_lock(&p.mutex) != 0)
		return waitFailed;
	int status = 0;
	pthread_cleanup_push(unlockOnCancel, &p.mutex);
	while (p.current == 0 && status == 0)
	{
		const int result = milliseconds == OsdInfiniteWait
		                       ? pthread_cond_wait(&p.condition, &p.mutex)
		                       : pthread_cond_timedwait(&p.condition, &p.mutex, &deadline);
		if (result == ETIMEDOUT)
			status = waitTimedOut;
		else if (result != 0)
			status = waitFailed;
	}
	// A unit that arrived together with the time-out is still taken.
	if (p.current > 0)
	{
		--p.current;
		status = 0;
	}
	pthread_cleanup_pop(1);
	return status;
}

bool OsdSemaphore::signal(long n)
{
	if (!isValid() || n < 1)
		return false;
	Platform& p = *platform;
	if (pthread_mutex_lock(&p.mutex) != 0)
		return false;
	const long room = p.maximum - p.current;
	const int added = static_cast<int>(n < room ? n : room);
	p.current += added;
	// One waiter per unit added: waking only on a rise from 0 would leave a
	// second waiter asleep when two signals come before the first one runs.
	for (int i = 0; i < added; ++i)
		pthread_cond_signal(&p.condition);
	pthread_mutex_unlock(&p.mutex);
	return true;
}

int OsdSemaphore::count() const
{
	if (!isValid() || pthread_mutex_lock(&platform->mutex) != 0)
		return 0;
	const int value = platform->current;
	pthread_mutex_unlock(&platform->mutex);
	return value;
}

OsdWaitOnSemaphore::OsdWaitOnSemaphore(OsdSemaphore* semaphore, unsigned int milliseconds)
{
	if (semaphore && semaphore->isValid())
		waitStatus = semaphore->waitOnSemaphore(milliseconds);
}
