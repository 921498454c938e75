#include "osi/osd/osdwaitonaddress.h"

#include "osi/osd/osdsemaphore.h"

#include <algorithm>
#include <climits>

#if defined(__APPLE__)
// The compare-and-wait calls under the C++ library's atomic waits.
extern "C" int __ulock_wait(uint32_t operation, void* address, uint64_t value,
                            uint32_t microseconds);
extern "C" int __ulock_wake(uint32_t operation, void* address, uint64_t wakeValue);
#else
#include <linux/futex.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>
#endif

static_assert(sizeof(std::atomic<int32_t>) == sizeof(int32_t) &&
                  std::atomic<int32_t>::is_always_lock_free,
              "the kernel waits on the atomic's own word");

namespace {

void* wordAddress(std::atomic<int32_t>& word)
{
	return static_cast<void*>(&word);
}

} // namespace

#if defined(__APPLE__)

namespace {

constexpr uint32_t compareAndWait = 1;
constexpr uint32_t wakeAll = 0x100;
constexpr uint32_t noErrno = 0x01000000;

} // namespace

void osdWaitOnAddress(std::atomic<int32_t>& word, int32_t expected, unsigned int milliseconds)
{
	// 0 microseconds waits without limit, so a finite wait is at least 1.
	const uint64_t requested = static_cast<uint64_t>(milliseconds) * 1000 + 1;
	const uint32_t microseconds =
	    milliseconds == OsdInfiniteWait
	        ? 0
	        : static_cast<uint32_t>(std::min<uint64_t>(requested, UINT_MAX));
	__ulock_wait(compareAndWait | noErrno, wordAddress(word), static_cast<uint32_t>(expected),
	             microseconds);
}

void osdWakeAddress(std::atomic<int32_t>& word, int count)
{
	__ulock_wake(compareAndWait | noErrno | (count > 1 ? wakeAll : 0), wordAddress(word), 0);
}

#else

void osdWaitOnAddress(std::atomic<int32_t>& word, int32_t expected, unsigned int milliseconds)
{
	timespec timeout{static_cast<time_t>(milliseconds / 1000),
	                 static_cast<long>(milliseconds % 1000) * 1000000L};
	syscall(SYS_futex, wordAddress(word), FUTEX_WAIT_PRIVATE, expected,
	        milliseconds == OsdInfiniteWait ? nullptr : &timeout, nullptr, 0);
}

void osdWakeAddress(std::atomic<int32_t>& word, int count)
{
	syscall(SYS_futex, wordAddress(word), FUTEX_WAKE_PRIVATE, count < 1 ? 1 : count, nullptr,
	        nullptr, 0);
}

#endif
