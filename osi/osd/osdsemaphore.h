// A counting semaphore with time-outs, on a POSIX mutex and condition.
#pragma once

#include "osi/base/referencecount.h"

#include <memory>
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

	bool isValid() const;
	const std::string& name() const { return semaphoreName; }

	// Takes one unit, waiting up to the time-out (OsdInfiniteWait: no limit).
	// 0 when a unit was taken; non-zero on time-out or failure.
	int waitOnSemaphore(unsigned int milliseconds);
	// Adds up to n units, never beyond the maximum; false if unusable or n < 1.
	bool signal(long n);
	int count() const;

private:
	// The POSIX mutex, its attribute and the condition, whether each was
	// created, and the count with its maximum, which the mutex guards.
	struct Platform;

	std::unique_ptr<Platform> platform;
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
