// What loop bodies print: collected per run on the workers, printed whole by
// the waiting thread (or handed to the output callbacks), never interleaved.
#include "osi/pool/coparallel.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

// The callbacks run on the waiting thread only, so these need no lock; the
// thread sanitizer checks that claim.
std::vector<std::string> collectedOut;
std::vector<std::string> collectedErr;

void collectOut(string_ext<char>& text)
{
	collectedOut.push_back(text);
}

void collectErr(string_ext<char>& text)
{
	collectedErr.push_back(text);
}

class PoolOutput : public testing::Test
{
protected:
	void SetUp() override
	{
		collectedOut.clear();
		collectedErr.clear();
		OsiThreadPool::setStdOutCallback(collectOut);
		OsiThreadPool::setStdErrCallback(collectErr);
	}
	void TearDown() override
	{
		OsiThreadPool::setStdOutCallback(nullptr);
		OsiThreadPool::setStdErrCallback(nullptr);
	}
};

std::string lineOf(int index, const char* part)
{
	return "index " + std::to_string(index) + " " + part + "\n";
}

void writeThreeWays(void*, int index, int, string_ext<char>& out)
{
	out += lineOf(index, "first");
	writeToStdOutString(lineOf(index, "second").c_str());
	writeToStdErrString(lineOf(index, "error").c_str());
}

std::vector<std::string> linesOf(const std::string& text)
{
	std::vector<std::string> lines;
	std::istringstream stream(text);
	for (std::string line; std::getline(stream, line);)
		lines.push_back(line + "\n");
	return lines;
}

TEST_F(PoolOutput, EachRunsOutputArrivesWholeThroughTheCallbacks)
{
	constexpr int count = 2000;
	parallelFor(nullptr, writeThreeWays, 0, count, false);

	std::map<std::string, int> seen;
	for (const std::string& text : collectedOut)
	{
		ASSERT_FALSE(text.empty());
		ASSERT_EQ(text.back(), '\n') << "a line was cut: " << text;
		const std::vector<std::string> lines = linesOf(text);
		ASSERT_EQ(lines.size(), 2u) << text;
		int index = -1;
		ASSERT_EQ(std::sscanf(lines[0].c_str(), "index %d first", &index), 1) << text;
		EXPECT_EQ(lines[1], lineOf(index, "second")) << "output of two runs mixed";
		++seen[lines[0]];
	}
	EXPECT_EQ(seen.size(), static_cast<size_t>(count));
	for (const auto& entry : seen)
		EXPECT_EQ(entry.second, 1) << entry.first;

	std::map<std::string, int> errors;
	for (const std::string& text : collectedErr)
		++errors[text];
	EXPECT_EQ(errors.size(), static_cast<size_t>(count));
	EXPECT_EQ(errors[lineOf(7, "error")], 1);
}

void writeLongLines(void*, int index, int, string_ext<char>& out)
{
	for (int part = 0; part < 3; ++part)
		out += "run " + std::to_string(index) + " part " + std::to_string(part) + " " +
		       std::string(200, static_cast<char>('a' + index % 26)) + "\n";
}

TEST(PoolOutputPrinted, LinesOfOneRunStayTogetherOnTheStandardOutput)
{
	constexpr int count = 500;
	testing::internal::CaptureStdout();
	parallelFor(nullptr, writeLongLines, 0, count, false);
	const std::string output = testing::internal::GetCapturedStdout();

	// Thread diagnostics may come between runs, never inside one.
	std::vector<std::string> lines;
	for (const std::string& line : linesOf(output))
	{
		if (line.rfind("***", 0) != 0)
			lines.push_back(line);
	}
	ASSERT_EQ(lines.size(), static_cast<size_t>(3 * count));
	std::vector<int> runs(count, 0);
	for (size_t at = 0; at < lines.size(); at += 3)
	{
		int index = -1;
		ASSERT_EQ(std::sscanf(lines[at].c_str(), "run %d part 0", &index), 1) << lines[at];
		ASSERT_TRUE(index >= 0 && index < count);
		++runs[static_cast<size_t>(index)];
		const std::string tail = " " + std::string(200, static_cast<char>('a' + index % 26)) + "\n";
		for (int part = 0; part < 3; ++part)
		{
			EXPECT_EQ(lines[at + static_cast<size_t>(part)],
			          "run " + std::to_string(index) + " part " + std::to_string(part) + tail);
		}
	}
	EXPECT_EQ(runs, std::vector<int>(count, 1));
}

TEST_F(PoolOutput, SerialBodiesWriteThroughTheCallerInOrder)
{
	parallelFor(nullptr, writeThreeWays, 0, 3, true);
	// Printed after every body: what it wrote to its string, then to the
	// serialised one through the free function, which is the same string.
	ASSERT_EQ(collectedOut.size(), 3u);
	for (int index = 0; index < 3; ++index)
		EXPECT_EQ(collectedOut[static_cast<size_t>(index)],
		          lineOf(index, "first") + lineOf(index, "second"));
	ASSERT_EQ(collectedErr.size(), 3u);
	EXPECT_EQ(collectedErr[2], lineOf(2, "error"));
}

TEST_F(PoolOutput, SerialBodiesStartCleanAndWriteOnlyToTheCallbacks)
{
	writeToStdOutString("before the loop\n");
	parallelFor(nullptr, writeThreeWays, 0, 1, true);
	ASSERT_EQ(collectedOut.size(), 1u);
	EXPECT_EQ(collectedOut[0], lineOf(0, "first") + lineOf(0, "second"));

	OsiThreadPool::setStdOutCallback(nullptr);
	OsiThreadPool::setStdErrCallback(nullptr);
	testing::internal::CaptureStdout();
	testing::internal::CaptureStderr();
	parallelFor(nullptr, writeThreeWays, 0, 2, true);
	OsiThreadPool::flushStdOutAndStdErr();
	EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
	EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(PoolOutput, OnlyWorkersAndTheMainThreadMayWrite)
{
	EXPECT_FALSE(writeToStdOutString(nullptr));
	bool fromOtherThread = true;
	std::thread other([&] { fromOtherThread = writeToStdOutString("lost\n"); });
	other.join();
	EXPECT_FALSE(fromOtherThread);

	EXPECT_TRUE(writeToStdOutString("main\n"));
	EXPECT_TRUE(writeToStdErrString("main error\n"));
	EXPECT_TRUE(collectedOut.empty()) << "printed before a flush";
	OsiThreadPool::flushStdOutAndStdErr();
	EXPECT_EQ(collectedOut, std::vector<std::string>{"main\n"});
	EXPECT_EQ(collectedErr, std::vector<std::string>{"main error\n"});
}

struct InnerSerial
{
	int outerIndex;
	int outerThread;
	std::atomic<int>* wrongThread;
};

void writeInner(void* data, int index, int threadIndex, string_ext<char>& out)
{
	const InnerSerial& inner = *static_cast<const InnerSerial*>(data);
	if (threadIndex != inner.outerThread)
		inner.wrongThread->fetch_add(1);
	out += lineOf(inner.outerIndex, std::to_string(index).c_str());
}

void runInnerSerialLoop(void* data, int index, int threadIndex, string_ext<char>&)
{
	InnerSerial inner{index, threadIndex, static_cast<std::atomic<int>*>(data)};
	parallelFor(&inner, writeInner, 0, 3, true);
}

TEST_F(PoolOutput, ASerialLoopInsideABodyWritesToItsWorkersOutput)
{
	std::atomic<int> wrongThread{0};
	parallelFor(&wrongThread, runInnerSerialLoop, 0, 40, false);
	EXPECT_EQ(wrongThread.load(), 0) << "an inner serial loop lost its worker's number";
	std::map<std::string, int> seen;
	for (const std::string& text : collectedOut)
		++seen[text];
	ASSERT_EQ(seen.size(), 40u);
	for (int index = 0; index < 40; ++index)
		EXPECT_EQ(seen[lineOf(index, "0") + lineOf(index, "1") + lineOf(index, "2")], 1);
}

// The second run ends only once the first run's text has been handed out, so
// the loop finishes only if the waiting thread prints while runs are going on.
std::atomic<bool> firstArrived{false};

void noteArrival(string_ext<char>& text)
{
	if (text == "first run\n")
		firstArrived.store(true);
}

void waitForOwnOutput(void* data, int index, int, string_ext<char>& out)
{
	if (index == 0)
	{
		out += "first run\n";
		return;
	}
	const auto deadline = Clock::now() + std::chrono::seconds(3);
	while (!firstArrived.load() && Clock::now() < deadline)
		std::this_thread::sleep_for(std::chrono::milliseconds(1));
	*static_cast<bool*>(data) = firstArrived.load();
}

TEST_F(PoolOutput, TheWaitingThreadPrintsWhileRunsAreGoingOn)
{
	firstArrived.store(false);
	OsiThreadPool::setStdOutCallback(noteArrival);
	bool sawOutputInTime = false;
	parallelFor(&sawOutputInTime, waitForOwnOutput, 0, 2, false);
	EXPECT_TRUE(sawOutputInTime);
}

} // namespace
