// A counting semaphore with time-outs, on a POSIX mutex and condition.
#pragma once

#include "osi/base/referencecount.h"

#include <pthread.h>

#include <string>

// A time-out that never expires.
constexpr unsigned int OsdInfiniteWait = 0xFFFFFFFFu;

// Status of a wait on a null or unusable semaphore or mutex.
constexpr int OsdWaitInvalid = 3;

class OsdSemaphore : public OsiReferenceCount
{
public:
	// With initial > maximum the semaphore is unusable.
	OsdSemaphore(const char* name, int initial, int maximum);
	~OsdSemaphore() override;

	bool isValid() const { return conditionCreated && attributeCreated && mutexCreated; }
	const std::string& name() const { return semaphoreName; }

	// Takes one unit, waiting up to the time-out (OsdInfiniteWait: no limit).
	// 0 when a unit was taken; non-zero on time-out or failure.
	int waitOnSemaphore(unsigned int milliseconds);
	// Adds up to n units, never beyond the maximum; false if unusable or n < 1.
	bool signal(long n);
	int count() const;

private:
	static void unlockOnCancel(void* mutex);

	mutable pthread_mutex_t mutex;
	pthread_mutexattr_t attribute;
	pthread_cond_t condition;
	bool conditionCreated = false;
	bool attributeCreated = false;
	bool mutexCreated = false;
	int current = 0;
	int maximum = 0;
	std::string semaphoreName;
};

// One wait on a semaphore, done at construction. The unit taken stays taken.
class OsdWaitOnSemaphore
{
public:
	OsdWaitOnSemaphore(OsdSemaphore* semaphore, unsigned int milliseconds);
	int status() const { return waitStatus; }
	bool acquired() const { return waitStatus == 0; }

private:
	int waitStatus = OsdWaitInvalid;
};
