// Threads: numbering, the messages of their life, references on their
// argument and on themselves, and early exit.
#include "osi/runtime/cosync.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <string>
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
	for (int i = 0; i < count; ++i)
	{
		// Successive numbers, one per thread opened, seen inside it too.
		const unsigned int number = threads[i].threadNumber();
		EXPECT_EQ(number, threads[0].threadNumber() + i);
		EXPECT_EQ(seen[i].argumentNumber, number);
		EXPECT_EQ(seen[i].ownNumber, number);
		EXPECT_FALSE(seen[i].onMainThread);
		EXPECT_FALSE(threads[i].isRunning());
		EXPECT_EQ(threads[i].exitValue(), number * 10);
		// The thread's start and end come before the end of the join.
		size_t previous = 0;
		for (const char* format :
		     {"*** Start thread %d\n", "*** End thread %d\n", "*** Wait thread closure end %d\n"})
		{
			const size_t at = output.find(line(format, number));
			ASSERT_NE(at, std::string::npos) << format << output;
			EXPECT_GE(at, previous) << format << output;
			previous = at;
		}
		EXPECT_LT(output.find(line("*** Wait thread closure start %d\n", number)), previous);
	}
	EXPECT_TRUE(OsdThread::isMainThread());
	EXPECT_EQ(OsdThread::currentThreadNumber(), 0u);
}

unsigned int doNothing(void*, unsigned int)
{
	return 0;
}

unsigned int waitForSignal(void* semaphore, unsigned int)
{
	static_cast<OsdSemaphore*>(semaphore)->waitOnSemaphore(OsdInfiniteWait);
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
	ASSERT_TRUE(thread.open(waitForSignal, static_cast<void*>(&release)));
	const unsigned int number = thread.threadNumber();
	// Refused while running: the result is the running flag, no new number.
	EXPECT_TRUE(thread.open(doNothing, static_cast<void*>(&value)));
	EXPECT_EQ(thread.threadNumber(), number);
	release.signal(1);
	thread.waitForThreadClosure();
	EXPECT_FALSE(thread.isRunning());
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

// Signalled when a watched thread object is destroyed.
OsdSemaphore threadGone("gone", 0, 1);

class WatchedThread : public OsdThread
{
public:
	~WatchedThread() override { threadGone.signal(1); }
};

TEST(Thread, ThreadOutlivesItsOwnersReferenceAndDeletesItself)
{
	OsdSemaphore start("start", 0, 1);
	auto* thread = new WatchedThread;
	ASSERT_TRUE(thread->open(waitForSignal, static_cast<void*>(&start)));
	thread->release(); // the thread's own reference keeps it alive
	EXPECT_EQ(threadGone.count(), 0);
	start.signal(1);
	EXPECT_EQ(threadGone.waitOnSemaphore(OsdInfiniteWait), 0);
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

} // namespace
