// The atomic lock, mutexes and semaphores under real contention (also under
// ThreadSanitizer); threads meet through the primitives themselves.
#include "osi/runtime/cosync.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
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

// Consumers with short time-outs race one producer: every unit is taken once.
TEST(Semaphore, EveryUnitSignalledIsTakenOnce)
{
	OsdSemaphore semaphore("queue", 0, 1 << 30);
	constexpr int units = 10000, consumers = 4;
	onThreads(1 + consumers, [&](int index) {
		if (index == 0)
			for (int i = 0; i < units; ++i)
				semaphore.signal(1);
		for (int mine = 0; index > 0 && mine < units / consumers;)
			if (semaphore.waitOnSemaphore(1) == 0)
				++mine;
	});
	EXPECT_EQ(semaphore.count(), 0);
}

// A token handed round a ring of one-unit semaphores, as in the thread pool; each
// holder works long enough for the others to fall asleep. A lost wake-up times out.
TEST(Semaphore, ATokenGoesRoundARingWithoutALostWakeUp)
{
	constexpr int size = 5, rounds = 1000;
	std::vector<std::unique_ptr<OsdSemaphore>> ring;
	for (int i = 0; i < size; ++i)
		ring.push_back(std::make_unique<OsdSemaphore>("ring", 0, 1));
	std::atomic<int> received{0};
	ring[0]->signal(1);
	onThreads(size, [&](int index) {
		for (int round = 0; round < rounds; ++round)
		{
			if (ring[static_cast<size_t>(index)]->waitOnSemaphore(30000) != 0)
				return;
			++received;
			for (volatile int held = 0; held < 20000; held = held + 1)
			{}
			ring[static_cast<size_t>((index + 1) % size)]->signal(1);
		}
	});
	EXPECT_EQ(received, size * rounds);
}

} // namespace
