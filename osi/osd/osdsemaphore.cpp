#include "osi/osd/osdsemaphore.h"

#include "osi/osd/osdthread.h"
#include "osi/osd/osdwaitonaddress.h"

#include <algorithm>
#include <chrono>

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#endif

namespace {

constexpr int waitTimedOut = 1;

// A waiter first polls with the processor's pause hint (about a microsecond
// in all), then gives its processor to other threads a few times (the thread
// that will signal may be waiting for one), and only then sleeps.
constexpr int pauseRounds = 64;
constexpr int yieldRounds = 4;

void pause()
{
#if defined(__x86_64__) || defined(__i386__)
	_mm_pause();
#endif
}

using Clock = std::chrono::steady_clock;

// Milliseconds left until the deadline, rounded up; 0 once it has passed.
unsigned int millisecondsUntil(Clock::time_point deadline)
{
	const auto left = deadline - Clock::now();
	if (left <= Clock::duration::zero())
		return 0;
	return static_cast<unsigned int>(std::chrono::ceil<std::chrono::milliseconds>(left).count());
}

} // namespace

OsdSemaphore::OsdSemaphore(const char* name, int initial, int maximumCount)
: maximum(initial <= maximumCount ? maximumCount : 0),
  usable(initial <= maximumCount),
  semaphoreName(name ? name : "")
{
	signal(initial);
}

bool OsdSemaphore::tryTake()
{
	int32_t units = current.load();
	while (units > 0)
	{
		if (current.compare_exchange_weak(units, units - 1))
			return true;
	}
	return false;
}

bool OsdSemaphore::spinForUnit()
{
	for (int round = 0; round < pauseRounds + yieldRounds; ++round)
	{
		if (tryTake())
			return true;
		if (round < pauseRounds)
			pause();
		else
			OsdThread::yield();
	}
	return false;
}

// A sleeper is counted before it looks at the count for the last time, and a
// signal raises the count before it looks for sleepers: one of the two always
// sees the other, so no unit is left while its waiter sleeps on.
int OsdSemaphore::sleepForUnit(unsigned int milliseconds)
{
	const bool limited = milliseconds != OsdInfiniteWait;
	const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(milliseconds);
	sleepers.fetch_add(1);
	int status = waitTimedOut;
	while (status != 0)
	{
		if (tryTake())
			status = 0;
		else if (!limited)
			osdWaitOnAddress(current, 0, OsdInfiniteWait);
		else if (const unsigned int left = millisecondsUntil(deadline))
			osdWaitOnAddress(current, 0, left);
		else
			break;
	}
	sleepers.fetch_sub(1);
	return status;
}

int OsdSemaphore::waitOnSemaphore(unsigned int milliseconds)
{
	if (!usable)
		return OsdWaitInvalid;
	if (spinForUnit())
		return 0;
	return sleepForUnit(milliseconds);
}

bool OsdSemaphore::signal(long n)
{
	if (!usable || n < 1)
		return false;
	int32_t units = current.load();
	int32_t added = 0;
	do
	{
		added = static_cast<int32_t>(std::min<long>(n, maximum - units));
		if (added <= 0)
			return true;
	} while (!current.compare_exchange_weak(units, units + added));
	if (sleepers.load() > 0)
		osdWakeAddress(current, added);
	return true;
}

int OsdSemaphore::count() const
{
	return usable ? current.load() : 0;
}

OsdWaitOnSemaphore::OsdWaitOnSemaphore(OsdSemaphore* semaphore, unsigned int milliseconds)
{
	if (semaphore && semaphore->isValid())
		waitStatus = semaphore->waitOnSemaphore(milliseconds);
}
