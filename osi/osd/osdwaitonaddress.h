// Sleeping on a 32-bit word until another thread changes it and wakes the
// sleepers: the kernel's futex on Linux, its compare-and-wait on macOS.
#pragma once

#include <atomic>
#include <cstdint>

// Sleeps while word still holds expected, for at most the time-out (from
// OsdSemaphore: OsdInfiniteWait means no limit). Returns on a wake-up, a
// changed word, the time-out or a signal; the caller checks the word again.
void osdWaitOnAddress(std::atomic<int32_t>& word, int32_t expected, unsigned int milliseconds);

// Wakes up to count threads sleeping on word.
void osdWakeAddress(std::atomic<int32_t>& word, int count);
