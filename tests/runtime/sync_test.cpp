// The atomic lock, semaphores and mutexes under real contention between
// threads; the ThreadSanitizer build runs these too.
#include "osi/runtime/cosync.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

// Runs body on count threads at once and waits for all of them.
template <class Body> void onThreads(int count, Body body)
{
	std::vector<std::thread> threads;
	for (int i = 0; i < count; ++i)
		threads.emplace_back(body, i);
	for (std::thread& thread : threads)
		thread.join();
}

bool tryLockElsewhere(OsdAtomicLock* lock)
{
	bool taken = false;
	std::thread([&] {
		taken = atomicLock(lock, false);
		if (taken)
			atomicUnlock(lock);
	}).join();
	return taken;
}

OsdAtomicLock staticLock; // zero-filled: free before any code ran

TEST(AtomicLock, ZeroFilledLockIsFree)
{
	EXPECT_TRUE(atomicLock(&staticLock, false));
	atomicUnlock(&staticLock);
	EXPECT_TRUE(tryLockElsewhere(&staticLock));
}

TEST(AtomicLock, RecursiveLockMustBeReleasedAsOftenAsTaken)
{
	OsdAtomicLock lock;
	ASSERT_TRUE(atomicLock(&lock, true));
	ASSERT_TRUE(atomicLock(&lock, true));
	EXPECT_FALSE(tryLockElsewhere(&lock));
	atomicUnlock(&lock);
	EXPECT_FALSE(tryLockElsewhere(&lock)) << "one unlock of two left the lock free";
	atomicUnlock(&lock);
	EXPECT_TRUE(tryLockElsewhere(&lock));
}

TEST(AtomicLock, NonWaitingLockOnHeldLockFailsAtOnce)
{
	OsdAtomicLock lock;
	std::atomic<bool> held{false}, done{false};
	std::thread holder([&] {
		atomicLock(&lock, true);
		held = true;
		while (!done)
			std::this_thread::yield();
		atomicUnlock(&lock);
	});
	while (!held)
		std::this_thread::yield();
	// Without waiting, repeated attempts all come back, each refused.
	for (int i = 0; i < 100; ++i)
		EXPECT_FALSE(atomicLock(&lock, false));
	done = true;
	holder.join();
	EXPECT_TRUE(atomicLock(&lock, false));
	atomicUnlock(&lock);
}

TEST(AtomicLock, UnlockByOtherThreadChangesNothing)
{
	OsdAtomicLock lock;
	ASSERT_TRUE(atomicLock(&lock, true));
	std::thread([&] { atomicUnlock(&lock); }).join();
	EXPECT_FALSE(tryLockElsewhere(&lock));
	atomicUnlock(&lock);
	EXPECT_TRUE(tryLockElsewhere(&lock));
}

TEST(AtomicLock, SerialisesCountersUnderContention)
{
	OsdAtomicLock lock;
	long counter = 0; // plain: only the lock keeps the increments apart
	constexpr int perThread = 20000;
	onThreads(4, [&](int index) {
		for (int i = 0; i < perThread; ++i)
		{
			atomicLock(&lock, true);
			if (index % 2)
			{
				// Re-entry on the odd threads.
				atomicLock(&lock, true);
				++counter;
				atomicUnlock(&lock);
			}
			else
				++counter;
			atomicUnlock(&lock);
		}
	});
	EXPECT_EQ(counter, 4L * perThread);
}

TEST(AtomicLock, AtomicAddReturnsTheNewValue)
{
	long volatile value = 5;
	EXPECT_EQ(atomicAdd(&value, 3), 8);
	EXPECT_EQ(atomicAdd(&value, -8), 0);
	onThreads(4, [&](int) {
		for (int i = 0; i < 10000; ++i)
			atomicAdd(&value, 1);
	});
	EXPECT_EQ(value, 40000);
}

TEST(Semaphore, SignalNeverRaisesTheCountPastTheMaximum)
{
	OsdSemaphore semaphore("saturated", 0, 1);
	ASSERT_TRUE(semaphore.isValid());
	EXPECT_TRUE(semaphore.signal(1));
	EXPECT_TRUE(semaphore.signal(1));
	EXPECT_EQ(semaphore.count(), 1);
	EXPECT_EQ(semaphore.waitOnSemaphore(0), 0);
	EXPECT_NE(semaphore.waitOnSemaphore(0), 0);

	OsdSemaphore wide("wide", 2, 5);
	EXPECT_TRUE(wide.signal(10));
	EXPECT_EQ(wide.count(), 5);
	EXPECT_FALSE(wide.signal(0));
	EXPECT_FALSE(wide.signal(-1));
	EXPECT_EQ(wide.count(), 5);
}

TEST(Semaphore, WaitOnEmptySemaphoreTimesOutAfterItsTime)
{
	OsdSemaphore semaphore("empty", 0, 1);
	const auto start = Clock::now();
	const int status = semaphore.waitOnSemaphore(50);
	const auto elapsed = Clock::now() - start;
	EXPECT_NE(status, 0);
	// Generous bounds: the deadline is measured on the time of day, and a
	// loaded machine (or a sanitizer) may wake the waiter late.
	EXPECT_GE(elapsed, std::chrono::milliseconds(40));
	EXPECT_LT(elapsed, std::chrono::seconds(5));

	OsdWaitOnSemaphore scoped(&semaphore, 50);
	EXPECT_FALSE(scoped.acquired());
}

TEST(Semaphore, MoreInitialThanMaximumLeavesItUnusable)
{
	OsdSemaphore semaphore("broken", 2, 1);
	EXPECT_FALSE(semaphore.isValid());
	EXPECT_EQ(semaphore.waitOnSemaphore(0), OsdWaitInvalid);
	EXPECT_FALSE(semaphore.signal(1));
	EXPECT_EQ(OsdWaitOnSemaphore(&semaphore, 0).status(), OsdWaitInvalid);
	EXPECT_EQ(OsdWaitOnSemaphore(nullptr, 0).status(), OsdWaitInvalid);
}

TEST(Semaphore, SignalWakesAWaiterWithoutTimeLimit)
{
	OsdSemaphore semaphore("handover", 0, 1);
	std::atomic<int> status{-1};
	std::thread waiter([&] { status = semaphore.waitOnSemaphore(OsdInfiniteWait); });
	std::this_thread::sleep_for(std::chrono::milliseconds(20));
	semaphore.signal(1);
	waiter.join();
	EXPECT_EQ(status, 0);
	EXPECT_EQ(semaphore.count(), 0);
}

TEST(Semaphore, TwoQuickSignalsWakeTwoWaiters)
{
	OsdSemaphore semaphore("pair", 0, 2);
	std::atomic<int> waiting{0};
	int statuses[2] = {-1, -1};
	std::vector<std::thread> waiters;
	for (int& status : statuses)
		waiters.emplace_back([&] {
			++waiting;
			status = semaphore.waitOnSemaphore(5000);
		});
	while (waiting < 2)
		std::this_thread::yield();
	std::this_thread::sleep_for(std::chrono::milliseconds(20));
	semaphore.signal(1);
	semaphore.signal(1);
	for (std::thread& waiter : waiters)
		waiter.join();
	EXPECT_EQ(statuses[0], 0);
	EXPECT_EQ(statuses[1], 0);
}

// Consumers that sleep without limit, sleep with short time-outs (a sleeper
// that leaves on its own must not swallow a wake-up meant for another), or
// only poll: every unit is taken exactly once either way.
struct Traffic
{
	const char* name;
	int producers;
	int consumers;
	unsigned int milliseconds;
};

class SemaphoreTraffic : public ::testing::TestWithParam<Traffic>
{};

TEST_P(SemaphoreTraffic, EveryUnitSignalledIsTakenOnce)
{
	const Traffic traffic = GetParam();
	OsdSemaphore semaphore("queue", 0, 1 << 30);
	constexpr int units = 10000;
	std::atomic<int> taken{0};
	onThreads(traffic.producers + traffic.consumers, [&](int index) {
		if (index < traffic.producers)
		{
			for (int i = 0; i < units / traffic.producers; ++i)
				semaphore.signal(1);
			return;
		}
		for (int mine = 0; mine < units / traffic.consumers;)
		{
			if (semaphore.waitOnSemaphore(traffic.milliseconds) == 0)
				++mine;
		}
		taken += units / traffic.consumers;
	});
	EXPECT_EQ(taken, units);
	EXPECT_EQ(semaphore.count(), 0);
}

INSTANTIATE_TEST_SUITE_P(Semaphore, SemaphoreTraffic,
                         ::testing::Values(Traffic{"sleeping", 2, 2, OsdInfiniteWait},
                                           Traffic{"shortTimeOuts", 1, 4, 1},
                                           Traffic{"polling", 4, 1, 0}),
                         [](const auto& info) { return std::string(info.param.name); });

// A token passed around a ring of threads, each waiting on its own semaphore
// of one unit and signalling the next: the thread pool's hand-over. Holding
// the token for a while sends the others from spinning to sleeping, so that
// both ways of waiting meet signals. A wake-up lost between a sleeper and its
// signal stops the ring; the generous time-out makes that a failure, not a
// hang.
struct Ring
{
	const char* name;
	int size;
	int holdIterations;
};

class SemaphoreRing : public ::testing::TestWithParam<Ring>
{};

TEST_P(SemaphoreRing, TheTokenGoesRoundWithoutALostWakeUp)
{
	const Ring ring = GetParam();
	constexpr int rounds = 1000;
	std::vector<std::unique_ptr<OsdSemaphore>> semaphores;
	for (int i = 0; i < ring.size; ++i)
		semaphores.push_back(std::make_unique<OsdSemaphore>("ring", 0, 1));
	std::atomic<int> received{0};
	semaphores[0]->signal(1);
	onThreads(ring.size, [&](int index) {
		for (int round = 0; round < rounds; ++round)
		{
			if (semaphores[static_cast<size_t>(index)]->waitOnSemaphore(30000) != 0)
				return;
			++received;
			for (volatile int held = 0; held < ring.holdIterations; held = held + 1)
			{}
			semaphores[static_cast<size_t>((index + 1) % ring.size)]->signal(1);
		}
	});
	EXPECT_EQ(received, ring.size * rounds);
}

INSTANTIATE_TEST_SUITE_P(Semaphore, SemaphoreRing,
                         ::testing::Values(Ring{"twoSpinning", 2, 0}, Ring{"threeMixed", 3, 2000},
                                           Ring{"fiveSleeping", 5, 20000}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Mutex, OwnerReentersAndMustReleaseAsOftenAsTaken)
{
	OsdMutex mutex("recursive");
	ASSERT_TRUE(mutex.isValid());
	ASSERT_EQ(mutex.wait(OsdInfiniteWait), 0);
	ASSERT_EQ(mutex.wait(0), 0);
	auto waitElsewhere = [&] {
		int status = -1;
		std::thread([&] {
			status = mutex.wait(10);
			if (status == 0)
				mutex.release();
		}).join();
		return status;
	};
	EXPECT_NE(waitElsewhere(), 0);
	mutex.release();
	EXPECT_NE(waitElsewhere(), 0);
	mutex.release();
	EXPECT_EQ(waitElsewhere(), 0);
}

TEST(Mutex, ReleaseByOtherThreadIsIgnored)
{
	OsdMutex mutex("owned");
	ASSERT_EQ(mutex.wait(0), 0);
	std::thread([&] {
		mutex.release();
		EXPECT_NE(mutex.wait(10), 0);
	}).join();
	mutex.release();
}

TEST(Mutex, ScopedWaitersSerialiseUnderContention)
{
	OsdMutex mutex("counter");
	long counter = 0;
	constexpr int perThread = 5000;
	onThreads(4, [&](int) {
		for (int i = 0; i < perThread; ++i)
		{
			OsdWaitOnMutex outer(&mutex, OsdInfiniteWait);
			ASSERT_TRUE(outer.acquired());
			OsdWaitOnMutex inner(&mutex, 0);
			ASSERT_TRUE(inner.acquired());
			++counter;
		}
	});
	EXPECT_EQ(counter, 4L * perThread);
}

TEST(Mutex, ScopedWaiterOnNoMutexReportsInvalid)
{
	EXPECT_EQ(OsdWaitOnMutex(nullptr, 0).status(), OsdWaitInvalid);
	OsdMutex mutex("held");
	{
		OsdWaitOnMutex hold(&mutex, 0);
		ASSERT_TRUE(hold.acquired());
		std::thread([&] { EXPECT_FALSE(OsdWaitOnMutex(&mutex, 10).acquired()); }).join();
	}
	std::thread([&] { EXPECT_TRUE(OsdWaitOnMutex(&mutex, 10).acquired()); }).join();
}

} // namespace
