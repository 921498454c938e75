// A counting semaphore with time-outs. The count is one atomic word: taking
// and giving units never locks, and a waiter spins briefly (the unit usually
// comes within microseconds when threads hand work to each other) before it
// sleeps in the kernel on the word itself.
#pragma once

#include "osi/base/referencecount.h"

#include <atomic>
#include <cstdint>
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

	bool isValid() const { return usable; }
	const std::string& name() const { return semaphoreName; }

	// Takes one unit, waiting up to the time-out (OsdInfiniteWait: no limit).
	// 0 when a unit was taken; non-zero on time-out or failure.
	int waitOnSemaphore(unsigned int milliseconds);
	// Adds up to n units, never beyond the maximum; false if unusable or n < 1.
	bool signal(long n);
	int count() const;

private:
	bool tryTake();
	bool spinForUnit();
	int sleepForUnit(unsigned int milliseconds);

	std::atomic<int32_t> current{0};
	// Threads asleep on current (or about to be): a signal wakes them only
	// when there are any, so a hand-over between running threads makes no
	// system call.
	std::atomic<int32_t> sleepers{0};
	int32_t maximum = 0;
	bool usable = false;
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
