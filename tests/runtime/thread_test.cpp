// Threads: numbering, the messages of their life, references on their
// argument and on themselves, and early exit.
#include "osi/runtime/cosync.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Seen
{
	unsigned int argumentNumber = 0;
	unsigned int ownNumber = 0;
	bool onMainThread = true;
};

unsigned int recordNumbers(void* argument, unsigned int number)
{
	auto* seen = static_cast<Seen*>(argument);
	seen->argumentNumber = number;
	seen->ownNumber = OsdThread::currentThreadNumber();
	seen->onMainThread = OsdThread::isMainThread();
	return number * 10;
}

std::string line(const char* format, unsigned int number)
{
	char text[64];
	std::snprintf(text, sizeof text, format, static_cast<int>(number));
	return text;
}

TEST(Thread, ThreadsAreNumberedAndJoinedWithTheirMessages)
{
	constexpr int count = 3;
	std::vector<Seen> seen(count);
	std::vector<OsdThread> threads(count);
	testing::internal::CaptureStdout();
	for (int i = 0; i < count; ++i)
		ASSERT_TRUE(threads[i].open(recordNumbers, static_cast<void*>(&seen[i])));
	for (OsdThread& thread : threads)
		thread.waitForThreadClosure();
	const std::string output = testing::internal::GetCapturedStdout();

	std::set<unsigned int> numbers;
	for (int i = 0; i < count; ++i)
	{
		const unsigned int number = threads[i].threadNumber();
		numbers.insert(number);
		EXPECT_EQ(seen[i].argumentNumber, number);
		EXPECT_EQ(seen[i].ownNumber, number);
		EXPECT_FALSE(seen[i].onMainThread);
		EXPECT_FALSE(threads[i].isRunning());
		EXPECT_EQ(threads[i].exitValue(), number * 10);
		const size_t start = output.find(line("*** Start thread %d\n", number));
		const size_t end = output.find(line("*** End thread %d\n", number));
		const size_t waitStart = output.find(line("*** Wait thread closure start %d\n", number));
		const size_t waitEnd = output.find(line("*** Wait thread closure end %d\n", number));
		ASSERT_NE(start, std::string::npos) << output;
		ASSERT_NE(end, std::string::npos) << output;
		ASSERT_NE(waitStart, std::string::npos) << output;
		ASSERT_NE(waitEnd, std::string::npos) << output;
		EXPECT_LT(start, end);
		EXPECT_LT(end, waitEnd) << "the join returned before the thread ended";
		EXPECT_LT(waitStart, waitEnd);
	}
	// Successive numbers, one per thread opened.
	ASSERT_EQ(numbers.size(), static_cast<size_t>(count));
	EXPECT_EQ(*numbers.rbegin() - *numbers.begin(), static_cast<unsigned int>(count - 1));
	EXPECT_EQ(threads[1].threadNumber(), threads[0].threadNumber() + 1);
	EXPECT_TRUE(OsdThread::isMainThread());
	EXPECT_EQ(OsdThread::currentThreadNumber(), 0u);
}

unsigned int doNothing(void*, unsigned int)
{
	return 0;
}

TEST(Thread, OpenRefusesNullFunctionOrArgumentAndASecondStart)
{
	OsdThread thread;
	int value = 0;
	EXPECT_FALSE(thread.open(nullptr, static_cast<void*>(&value)));
	EXPECT_FALSE(thread.open(doNothing, static_cast<void*>(nullptr)));
	EXPECT_FALSE(thread.isRunning());

	OsdSemaphore release("release", 0, 1);
	auto blockUntilReleased = [](void* semaphore, unsigned int) -> unsigned int {
		static_cast<OsdSemaphore*>(semaphore)->waitOnSemaphore(OsdInfiniteWait);
		return 0;
	};
	ASSERT_TRUE(thread.open(blockUntilReleased, static_cast<void*>(&release)));
	const unsigned int number = thread.threadNumber();
	// Refused while running: the result is the running flag, no new number.
	EXPECT_TRUE(thread.open(doNothing, static_cast<void*>(&value)));
	EXPECT_EQ(thread.threadNumber(), number);
	release.signal(1);
	thread.waitForThreadClosure();
	EXPECT_FALSE(thread.isRunning());

	testing::internal::CaptureStdout();
	thread.waitForThreadClosure();
	EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

class Counted : public OsiReferenceCount
{
public:
	std::atomic<long> seenInThread{0};
};

TEST(Thread, ThreadHoldsItsArgumentAndItselfWhileItRuns)
{
	Counted argument;
	OsdThread thread;
	auto countReferences = [](void* self, unsigned int) -> unsigned int {
		static_cast<Counted*>(self)->seenInThread = static_cast<Counted*>(self)->referenceCount();
		return 0;
	};
	ASSERT_TRUE(thread.open(countReferences, &argument));
	thread.waitForThreadClosure();
	EXPECT_EQ(argument.seenInThread, 2);
	EXPECT_EQ(argument.referenceCount(), 1);
	EXPECT_EQ(thread.referenceCount(), 1);
}

std::atomic<bool> exitedThreadGone{false};

class WatchedThread : public OsdThread
{
public:
	~WatchedThread() override { exitedThreadGone = true; }
};

TEST(Thread, ThreadOutlivesItsOwnersReferenceAndDeletesItself)
{
	exitedThreadGone = false;
	OsdSemaphore finished("finished", 0, 1);
	auto* thread = new WatchedThread;
	OsdSemaphore start("start", 0, 1);
	struct Pair
	{
		OsdSemaphore* start;
		OsdSemaphore* finished;
	} pair{&start, &finished};
	auto waitThenSignal = [](void* data, unsigned int) -> unsigned int {
		auto* p = static_cast<Pair*>(data);
		p->start->waitOnSemaphore(OsdInfiniteWait);
		p->finished->signal(1);
		return 0;
	};
	ASSERT_TRUE(thread->open(waitThenSignal, static_cast<void*>(&pair)));
	thread->release(); // the thread's own reference keeps it alive
	EXPECT_FALSE(exitedThreadGone);
	start.signal(1);
	ASSERT_EQ(finished.waitOnSemaphore(5000), 0);
	for (int i = 0; i < 500 && !exitedThreadGone; ++i)
		std::this_thread::sleep_for(std::chrono::milliseconds(10));
	EXPECT_TRUE(exitedThreadGone);
}

unsigned int exitEarly(void* argument, unsigned int)
{
	static_cast<OsdThread*>(argument)->exit(42);
	return 7; // never reached
}

TEST(Thread, ExitEndsTheThreadWithItsValue)
{
	OsdThread thread;
	testing::internal::CaptureStdout();
	ASSERT_TRUE(thread.open(exitEarly, static_cast<void*>(&thread)));
	thread.waitForThreadClosure();
	const std::string output = testing::internal::GetCapturedStdout();
	EXPECT_EQ(thread.exitValue(), 42u);
	EXPECT_NE(output.find(line("*** End thread %d\n", thread.threadNumber())), std::string::npos)
	    << output;
	EXPECT_EQ(thread.referenceCount(), 1);
}

TEST(Thread, KindsOfThreadAllRun)
{
	for (OsdThreadType type :
	     {OsdThreadType::normal, OsdThreadType::background, OsdThreadType::timeCritical})
	{
		OsdThread thread(type);
		Seen seen;
		ASSERT_TRUE(thread.open(recordNumbers, static_cast<void*>(&seen), 256 * 1024));
		thread.waitForThreadClosure();
		EXPECT_EQ(seen.ownNumber, thread.threadNumber());
	}
}

} // namespace
