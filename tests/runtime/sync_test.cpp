// The atomic lock, mutexes and semaphores under real contention (also under
// ThreadSanitizer); threads meet through the primitives themselves.
#include "osi/runtime/cosync.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

// Runs body on count threads at once and waits for all of them.
void onThreads(int count, const std::function<void(int)>& body)
{
	std::vector<std::thread> threads;
	for (int i = 0; i < count; ++i)
		threads.emplace_back(body, i);
	for (std::thread& thread : threads)
		thread.join();
}

// The two recursive locks behind one face: take (waiting or not) and release.
struct Lock
{
	const char* name;
	std::function<bool(bool wait)> take;
	std::function<void()> release;
};

std::vector<Lock> bothLocks(OsdAtomicLock& atomic, OsdMutex& mutex)
{
	return {{"atomic lock", [&](bool wait) { return atomicLock(&atomic, wait); },
	         [&] { atomicUnlock(&atomic); }},
	        {"mutex", [&](bool wait) { return mutex.wait(wait ? OsdInfiniteWait : 0) == 0; },
	         [&] { mutex.release(); }}};
}

bool takenElsewhere(const Lock& lock)
{
	bool taken = false;
	std::thread([&] {
		taken = lock.take(false);
		if (taken)
			lock.release();
	}).join();
	return taken;
}

OsdAtomicLock zeroFilled; // static storage: free before any code ran

TEST(Locks, AreRecursiveAndOwnedByTheirThread)
{
	OsdMutex mutex("recursive");
	ASSERT_TRUE(mutex.isValid());
	for (const Lock& lock : bothLocks(zeroFilled, mutex))
	{
		SCOPED_TRACE(lock.name);
		ASSERT_TRUE(lock.take(true));
		ASSERT_TRUE(lock.take(false));
		EXPECT_FALSE(takenElsewhere(lock));
		lock.release();
		EXPECT_FALSE(takenElsewhere(lock));          // one release of two
		std::thread([&] { lock.release(); }).join(); // not the owner: ignored
		EXPECT_FALSE(takenElsewhere(lock));
		lock.release();
		EXPECT_TRUE(takenElsewhere(lock));
	}
}

TEST(Locks, SerialiseCountersUnderContention)
{
	OsdAtomicLock atomic;
	OsdMutex mutex("counter");
	for (const Lock& lock : bothLocks(atomic, mutex))
	{
		long counter = 0; // plain: only the lock keeps the increments apart
		onThreads(4, [&](int index) {
			for (int i = 0; i < 10000; ++i)
			{
				lock.take(true);
				if (index % 2) // re-entry on the odd threads
					lock.take(true), ++counter, lock.release();
				else
					++counter;
				lock.release();
			}
		});
		EXPECT_EQ(counter, 40000L) << lock.name;
	}
	long volatile value = 5;
	EXPECT_EQ(atomicAdd(&value, 3), 8);
	onThreads(4, [&](int) {
		for (int i = 0; i < 10000; ++i)
			atomicAdd(&value, 1);
	});
	EXPECT_EQ(value, 40008);
}

TEST(Locks, ScopedWaitersHoldTheMutexForTheirLifetime)
{
	EXPECT_EQ(OsdWaitOnMutex(nullptr, 0).status(), OsdWaitInvalid);
	OsdMutex mutex("held");
	{
		OsdWaitOnMutex hold(&mutex, 0);
		ASSERT_TRUE(hold.acquired());
		std::thread([&] { EXPECT_FALSE(OsdWaitOnMutex(&mutex, 0).acquired()); }).join();
	}
	std::thread([&] { EXPECT_TRUE(OsdWaitOnMutex(&mutex, 0).acquired()); }).join();
}

TEST(Semaphore, CountsBetweenZeroAndItsMaximum)
{
	OsdSemaphore semaphore("saturated", 0, 1);
	ASSERT_TRUE(semaphore.isValid());
	EXPECT_TRUE(semaphore.signal(1) && semaphore.signal(1));
	EXPECT_EQ(semaphore.count(), 1);
	EXPECT_EQ(semaphore.waitOnSemaphore(0), 0);
	EXPECT_NE(semaphore.waitOnSemaphore(0), 0);
	EXPECT_NE(semaphore.waitOnSemaphore(20), 0); // an empty semaphore times out
	EXPECT_FALSE(OsdWaitOnSemaphore(&semaphore, 0).acquired());
	OsdSemaphore wide("wide", 2, 5);
	EXPECT_TRUE(wide.signal(10));
	EXPECT_FALSE(wide.signal(0) || wide.signal(-1));
	EXPECT_EQ(wide.count(), 5);

	OsdSemaphore broken("broken", 2, 1); // more initial than maximum
	EXPECT_FALSE(broken.isValid());
	EXPECT_EQ(broken.waitOnSemaphore(0), OsdWaitInvalid);
	EXPECT_FALSE(broken.signal(1));
	EXPECT_EQ(OsdWaitOnSemaphore(&broken, 0).status(), OsdWaitInvalid);
	EXPECT_EQ(OsdWaitOnSemaphore(nullptr, 0).status(), OsdWaitInvalid);
}

// Consumers that sleep, time out early (not swallowing another's wake-up) or poll.
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

// A token handed round a ring of one-unit semaphores, as in the thread pool; holding it
// longer sends waiters from spinning to sleeping. A lost wake-up times out the ring.
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

} // namespace
