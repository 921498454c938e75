// What loop bodies print: collected per run on the workers, printed whole by
// the waiting thread (or handed to the output callbacks), never interleaved.
#include "osi/pool/coparallel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

// Callbacks run on the waiting thread only: no lock (ThreadSanitizer checks that).
std::string collectedOut;
std::string collectedErr;
int outCalls = 0;

void setCallbacks(bool set)
{
	collectedOut.clear();
	collectedErr.clear();
	outCalls = 0;
	const OsiOutputCallback out = [](string_ext<char>& text) { collectedOut += text, ++outCalls; };
	const OsiOutputCallback err = [](string_ext<char>& text) { collectedErr += text; };
	OsiThreadPool::setStdOutCallback(set ? out : nullptr);
	OsiThreadPool::setStdErrCallback(set ? err : nullptr);
}

std::string lineOf(int index, int part)
{
	return "run " + std::to_string(index) + " part " + std::to_string(part) + " " +
	       std::string(100, static_cast<char>('a' + index % 26)) + "\n";
}

// Three lines through the body's string and the free function (the same on a worker).
void writeRun(void*, int index, int, string_ext<char>& out)
{
	out += lineOf(index, 0);
	writeToStdOutString(lineOf(index, 1).c_str());
	out += lineOf(index, 2);
	writeToStdErrString(lineOf(index, -1).c_str());
}

// Every run's lines, together and once; thread diagnostics only between runs.
void expectWholeRuns(const std::string& text, int count)
{
	std::vector<int> runs(static_cast<size_t>(count), 0);
	std::istringstream lines(text);
	for (std::string line; std::getline(lines, line);)
	{
		int index = -1;
		if (line.rfind("***", 0) == 0)
			continue;
		ASSERT_EQ(std::sscanf(line.c_str(), "run %d part 0", &index), 1) << line;
		ASSERT_TRUE(index >= 0 && index < count) << line;
		++runs[static_cast<size_t>(index)];
		for (int part = 1; part < 3 && std::getline(lines, line); ++part)
			ASSERT_EQ(line + "\n", lineOf(index, part)) << "output of two runs mixed";
	}
	EXPECT_EQ(runs, std::vector<int>(static_cast<size_t>(count), 1));
}

class PoolOutput : public testing::TestWithParam<bool>
{
protected:
	void TearDown() override { setCallbacks(false); }
};

TEST_P(PoolOutput, EachRunsOutputArrivesWhole)
{
	const bool toCallbacks = GetParam();
	setCallbacks(toCallbacks);
	testing::internal::CaptureStdout();
	parallelFor(nullptr, writeRun, 0, 1000, false);
	const std::string printed = testing::internal::GetCapturedStdout();
	expectWholeRuns(toCallbacks ? collectedOut : printed, 1000);
	EXPECT_EQ(std::count(collectedErr.begin(), collectedErr.end(), '\n'), toCallbacks ? 1000 : 0);
}

INSTANTIATE_TEST_SUITE_P(ToCallbacksOrPrinted, PoolOutput, testing::Bool());

// Serial text is handed on body by body, or dropped without callbacks; other threads may
// not write; the main thread's text waits for a flush.
TEST(SerialOutput, GoesToTheCallbacksBodyByBody)
{
	writeToStdOutString("before the loop\n");
	setCallbacks(true);
	parallelFor(nullptr, writeRun, 0, 3, true);
	EXPECT_EQ(outCalls, 3);
	expectWholeRuns(collectedOut, 3);
	EXPECT_EQ(collectedErr, lineOf(0, -1) + lineOf(1, -1) + lineOf(2, -1));

	setCallbacks(true);
	EXPECT_FALSE(writeToStdOutString(nullptr));
	bool fromOtherThread = true;
	std::thread([&] { fromOtherThread = writeToStdOutString("lost\n"); }).join();
	EXPECT_FALSE(fromOtherThread);
	EXPECT_TRUE(writeToStdOutString("main\n") && writeToStdErrString("main error\n"));
	EXPECT_EQ(collectedOut, "") << "handed on before a flush";
	OsiThreadPool::flushStdOutAndStdErr();
	EXPECT_EQ(collectedOut + collectedErr, "main\nmain error\n");

	setCallbacks(false);
	testing::internal::CaptureStdout();
	testing::internal::CaptureStderr();
	parallelFor(nullptr, writeRun, 0, 2, true);
	OsiThreadPool::flushStdOutAndStdErr();
	EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
	EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// The second run waits (boundedly) for the first run's text to be handed out.
std::atomic<bool> firstArrived{false};

void waitForOwnOutput(void* data, int index, int, string_ext<char>& out)
{
	if (index == 0)
		return void(out += "first run\n");
	const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
	while (!firstArrived && std::chrono::steady_clock::now() < deadline)
		std::this_thread::yield();
	*static_cast<bool*>(data) = firstArrived;
}

TEST(MainThreadOutput, TheWaitingThreadPrintsWhileRunsAreGoingOn)
{
	OsiThreadPool::setStdOutCallback(
	    [](string_ext<char>& text) { firstArrived = firstArrived || text == "first run\n"; });
	bool sawOutputInTime = false;
	parallelFor(&sawOutputInTime, waitForOwnOutput, 0, 2, false);
	OsiThreadPool::setStdOutCallback(nullptr);
	EXPECT_TRUE(sawOutputInTime);
}

} // namespace
