// Threads: numbering, the messages of their life, references on their
// argument and on themselves, and early exit.
#include "osi/runtime/cosync.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

// What a thread saw of itself; with exitThrough set, it ends through exit() with
// another value than it would return.
struct Seen : OsiReferenceCount
{
	unsigned int argumentNumber = 0;
	unsigned int ownNumber = 0;
	bool onMainThread = true;
	long references = 0;
	OsdThread* exitThrough = nullptr;
};

unsigned int recordNumbers(void* argument, unsigned int number)
{
	auto* seen = static_cast<Seen*>(static_cast<OsiReferenceCount*>(argument));
	seen->argumentNumber = number;
	seen->ownNumber = OsdThread::currentThreadNumber();
	seen->onMainThread = OsdThread::isMainThread();
	seen->references = seen->referenceCount();
	if (seen->exitThrough)
		seen->exitThrough->exit(number * 10 + 1);
	return number * 10;
}

std::string line(const char* format, unsigned int number)
{
	char text[64];
	std::snprintf(text, sizeof text, format, static_cast<int>(number));
	return text;
}

TEST(Thread, ThreadsAreNumberedHoldTheirArgumentAndJoinWithTheirMessages)
{
	constexpr int count = 3;
	Seen seen[count];
	std::vector<OsdThread> threads(count);
	seen[count - 1].exitThrough = &threads[count - 1];
	testing::internal::CaptureStdout();
	for (int i = 0; i < count; ++i)
		ASSERT_TRUE(threads[i].open(recordNumbers, &seen[i]));
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
		EXPECT_EQ(threads[i].exitValue(), number * 10 + (seen[i].exitThrough ? 1 : 0));
		EXPECT_EQ(seen[i].references, 2);
		EXPECT_EQ(seen[i].referenceCount(), 1);
		EXPECT_EQ(threads[i].referenceCount(), 1);
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

// Signalled when a watched thread object is destroyed.
OsdSemaphore threadGone("gone", 0, 1);

class WatchedThread : public OsdThread
{
public:
	~WatchedThread() override { threadGone.signal(1); }
};

TEST(Thread, OpenRefusesBadArgumentsAndASecondStartAndTheThreadOutlivesItsOwner)
{
	int value = 0;
	OsdSemaphore start("start", 0, 1);
	auto* thread = new WatchedThread;
	EXPECT_FALSE(thread->open(nullptr, static_cast<void*>(&value)));
	EXPECT_FALSE(thread->open(doNothing, static_cast<void*>(nullptr)));
	EXPECT_FALSE(thread->isRunning());
	ASSERT_TRUE(thread->open(waitForSignal, static_cast<void*>(&start)));
	const unsigned int number = thread->threadNumber();
	// Refused while running: the result is the running flag, no new number.
	EXPECT_TRUE(thread->open(doNothing, static_cast<void*>(&value)));
	EXPECT_EQ(thread->threadNumber(), number);
	thread->release(); // the thread's own reference keeps it alive
	EXPECT_EQ(threadGone.count(), 0);
	start.signal(1);
	EXPECT_EQ(threadGone.waitOnSemaphore(OsdInfiniteWait), 0);
}

} // namespace
