// Parallel loops: which indices run, on which threads and in which order; the
// pool's size, life and sharing between nested loops.
#include "osi/pool/coparallel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <climits>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

struct Counts
{
	Counts(int first, int count) : first(first), runs(static_cast<size_t>(count)) {}

	int first;
	std::vector<std::atomic<int>> runs;
	std::atomic<int> badThreadIndex{0};
	std::atomic<int> onCaller{0};
	OsdThreadId caller = OsdThread::threadId();
};

void countRun(void* data, int index, int threadIndex, string_ext<char>&)
{
	Counts& counts = *static_cast<Counts*>(data);
	counts.runs[static_cast<size_t>(index - counts.first)].fetch_add(1);
	if (threadIndex < 0 || threadIndex >= std::max(1, numberOfThreads()))
		counts.badThreadIndex.fetch_add(1);
	if (counts.caller == OsdThread::threadId())
		counts.onCaller.fetch_add(1);
}

int runsNotOnce(const Counts& counts)
{
	return static_cast<int>(std::count_if(counts.runs.begin(), counts.runs.end(),
	                                      [](const std::atomic<int>& n) { return n.load() != 1; }));
}

int expectedPoolSize()
{
	return std::min(numberOfCores(), OsiThreadPool::maximumThreads);
}

void expectClosed()
{
	EXPECT_EQ(numberOfThreads(), 0);
	EXPECT_EQ(OsiThreadPool::liveThreads(), 0);
}

TEST(ParallelFor, EmptyRangesRunNothingAndOpenNoPool)
{
	Counts counts(0, 8);
	testing::internal::CaptureStdout();
	parallelFor(&counts, countRun, 5, 5, false);
	parallelFor(&counts, countRun, 5, 2, false);
	priorityParallelFor(&counts, countRun, {1, 2, 3}, 2, 2, false);
	priorityParallelFor(&counts, countRun, {}, 0, 3, false);
	const std::string output = testing::internal::GetCapturedStdout();
	EXPECT_EQ(runsNotOnce(counts), 8) << "a body ran";
	EXPECT_EQ(output.find("*** Start thread"), std::string::npos) << output;
	expectClosed();
}

struct SerialSeen
{
	std::vector<int> indices;
	std::vector<int> threadIndices;
	int elsewhere = 0;
	int poolSeen = 0;
};

void recordSerial(void* data, int index, int threadIndex, string_ext<char>&)
{
	SerialSeen& seen = *static_cast<SerialSeen*>(data);
	seen.indices.push_back(index);
	seen.threadIndices.push_back(threadIndex);
	seen.elsewhere += OsdThread::isMainThread() ? 0 : 1;
	seen.poolSeen += numberOfThreads() + OsiThreadPool::liveThreads();
}

TEST(ParallelFor, SerialLoopsRunInOrderOnTheCallerWithoutThreads)
{
	SerialSeen seen;
	parallelFor(&seen, recordSerial, -3, 7, true);
	std::vector<int> expected(10);
	for (int i = 0; i < 10; ++i)
		expected[static_cast<size_t>(i)] = i - 3;
	EXPECT_EQ(seen.indices, expected);
	EXPECT_EQ(seen.threadIndices, std::vector<int>(10, 0));
	EXPECT_EQ(seen.elsewhere, 0);
	EXPECT_EQ(seen.poolSeen, 0) << "a serial loop opened the pool";
}

TEST(ParallelFor, EveryIndexRunsExactlyOnceOnAWorker)
{
	constexpr int first = -2500;
	constexpr int count = 5000;
	Counts counts(first, count);
	parallelFor(&counts, countRun, first, first + count, false);
	EXPECT_EQ(runsNotOnce(counts), 0);
	EXPECT_EQ(counts.badThreadIndex.load(), 0);
	EXPECT_EQ(counts.onCaller.load(), 0) << "a body ran on the waiting thread";
	expectClosed();
}

// Each of the first two bodies waits (boundedly) until both have started, which
// only happens when two workers run them at the same time.
struct Meeting
{
	std::atomic<int> arrived{0};
	std::atomic<int> met{0};
	std::vector<int> poolSizes = std::vector<int>(2, 0);
};

void meet(void* data, int index, int, string_ext<char>&)
{
	Meeting& meeting = *static_cast<Meeting*>(data);
	meeting.poolSizes[static_cast<size_t>(index)] = numberOfThreads();
	meeting.arrived.fetch_add(1);
	const auto deadline = Clock::now() + std::chrono::seconds(3);
	while (meeting.arrived.load() < 2 && Clock::now() < deadline)
		std::this_thread::yield();
	if (meeting.arrived.load() == 2)
		meeting.met.fetch_add(1);
}

TEST(ParallelFor, BodiesRunConcurrentlyOnPoolSizedToTheCores)
{
	if (numberOfCores() < 2)
		GTEST_SKIP() << "one processor";
	Meeting meeting;
	parallelFor(&meeting, meet, 0, 2, false);
	EXPECT_EQ(meeting.met.load(), 2);
	EXPECT_EQ(meeting.poolSizes, std::vector<int>(2, expectedPoolSize()));
	expectClosed();
}

struct Waves
{
	std::vector<int> priority;
	std::vector<int> waveSize;
	std::vector<std::atomic<int>> finished;
	std::atomic<int> early{0};
	std::atomic<int> singleOffCaller{0};

	explicit Waves(std::vector<int> levels) : priority(std::move(levels)), finished(100)
	{
		waveSize.assign(100, 0);
		for (int level : priority)
			++waveSize[static_cast<size_t>(level)];
	}
};

void runWave(void* data, int index, int threadIndex, string_ext<char>&)
{
	Waves& waves = *static_cast<Waves*>(data);
	const int level = waves.priority[static_cast<size_t>(index)];
	for (int lower = 0; lower < level; ++lower)
	{
		if (waves.finished[static_cast<size_t>(lower)].load() !=
		    waves.waveSize[static_cast<size_t>(lower)])
			waves.early.fetch_add(1);
	}
	if (waves.waveSize[static_cast<size_t>(level)] == 1 &&
	    (!OsdThread::isMainThread() || threadIndex != 0))
		waves.singleOffCaller.fetch_add(1);
	// Give a later wave the chance to start too early.
	std::this_thread::sleep_for(std::chrono::microseconds(200));
	waves.finished[static_cast<size_t>(level)].fetch_add(1);
}

TEST(PriorityParallelFor, EachWaveEndsBeforeTheNextAndSinglesRunOnTheCaller)
{
	// Levels 0, 2 and 3 have many indices, levels 1 and 4 one each.
	std::vector<int> levels;
	for (int i = 0; i < 60; ++i)
		levels.push_back(i == 17 ? 1 : i == 5 ? 4 : (i * 7) % 3 == 0 ? 0 : i % 2 ? 2 : 3);
	Waves waves(levels);
	priorityParallelFor(&waves, runWave, waves.priority, 0, 60, false);
	EXPECT_EQ(waves.early.load(), 0) << "a wave started before a lower one ended";
	EXPECT_EQ(waves.singleOffCaller.load(), 0);
	for (int level = 0; level < 5; ++level)
		EXPECT_EQ(waves.finished[static_cast<size_t>(level)].load(),
		          waves.waveSize[static_cast<size_t>(level)]);
	expectClosed();
}

TEST(PriorityParallelFor, SerialWavesRunInPriorityThenIndexOrder)
{
	SerialSeen seen;
	const std::vector<int> priority = {3, 1, 3, 0, 1, 9, 0};
	priorityParallelFor(&seen, recordSerial, priority, 1, 7, true);
	EXPECT_EQ(seen.indices, (std::vector<int>{3, 6, 1, 4, 2, 5}));
	EXPECT_EQ(seen.threadIndices, std::vector<int>(6, 0));
	EXPECT_EQ(seen.poolSeen, 0);
}

TEST(PriorityParallelFor, ARangeWithoutPrioritiesForAllIndicesRunsNothing)
{
	Counts counts(-1, 8);
	priorityParallelFor(&counts, countRun, {0, 0, 0}, 0, 5, false);
	priorityParallelFor(&counts, countRun, {0, 0, 0}, -1, 2, false);
	EXPECT_EQ(runsNotOnce(counts), 8) << "a body ran";
}

TEST(ThreadPool, RequestsAreCappedAtTheCoreCount)
{
	const int cores = numberOfCores();
	EXPECT_GE(cores, 1);
	EXPECT_LE(static_cast<unsigned int>(cores), std::max(1u, std::thread::hardware_concurrency()));

	ASSERT_TRUE(openThreadPool(200));
	EXPECT_EQ(numberOfThreads(), expectedPoolSize());
	EXPECT_LE(numberOfThreads(), OsiThreadPool::maximumThreads);
	EXPECT_EQ(OsiThreadPool::liveThreads(), numberOfThreads());
	closeThreadPool();
	expectClosed();
}

// --- the pool's lifetime ----------------------------------------------------

enum class Step
{
	open1,
	open4,
	close,
	loop,
	nestedLoop,
	loopThatCloses // a body asks to close the pool its loop runs on
};

constexpr int allCores = -1; // stands for one worker per core
constexpr int none = -2;     // a step that runs no body

struct StepResult
{
	Step step;
	int seenByBodies;
	int afterwards;
};

struct Lifetime
{
	const char* name;
	std::vector<StepResult> steps;
};

void PrintTo(const Lifetime& lifetime, std::ostream* out)
{
	*out << lifetime.name;
}

struct Seen
{
	std::atomic<int> smallest{INT_MAX};
	std::atomic<int> largest{INT_MIN};
	bool closes = false;
};

void recordPoolSize(void* data, int, int, string_ext<char>&)
{
	Seen& seen = *static_cast<Seen*>(data);
	if (seen.closes)
		closeThreadPool();
	const int size = numberOfThreads();
	for (int low = seen.smallest.load();
	     size < low && !seen.smallest.compare_exchange_weak(low, size);)
	{}
	for (int high = seen.largest.load();
	     size > high && !seen.largest.compare_exchange_weak(high, size);)
	{}
}

void recordInInnerLoop(void* data, int, int, string_ext<char>&)
{
	parallelFor(data, recordPoolSize, 0, 8, false);
}

int take(const StepResult& result, Seen& seen)
{
	switch (result.step)
	{
	case Step::open1:
		return openThreadPool(1) ? none : INT_MIN;
	case Step::open4:
		return openThreadPool(4) ? none : INT_MIN;
	case Step::close:
		closeThreadPool();
		return none;
	case Step::loop:
	case Step::loopThatCloses:
		seen.closes = result.step == Step::loopThatCloses;
		parallelFor(&seen, recordPoolSize, 0, 16, false);
		break;
	case Step::nestedLoop:
		parallelFor(&seen, recordInInnerLoop, 0, 4, false);
		break;
	}
	return seen.smallest.load() == seen.largest.load() ? seen.smallest.load() : INT_MIN;
}

class PoolLifetime : public testing::TestWithParam<Lifetime>
{};

// After each step: the pool size the bodies saw, and the threads left.
TEST_P(PoolLifetime, ThreadCountsFollowEachStep)
{
	const auto resolve = [](int count) { return count == allCores ? expectedPoolSize() : count; };
	const std::vector<StepResult>& steps = GetParam().steps;
	testing::internal::CaptureStdout();
	for (size_t at = 0; at < steps.size(); ++at)
	{
		Seen seen;
		EXPECT_EQ(take(steps[at], seen), resolve(steps[at].seenByBodies)) << "step " << at;
		EXPECT_EQ(numberOfThreads(), resolve(steps[at].afterwards)) << "after step " << at;
	}
	testing::internal::GetCapturedStdout();
	closeThreadPool();
	expectClosed();
}

const Lifetime lifetimes[] = {
    {"loopsOpenAndCloseTheirPool", {{Step::loop, allCores, 0}, {Step::loop, allCores, 0}}},
    {"anExplicitPoolServesUntilTheLoopEnds",
     {{Step::open1, none, 1},
      {Step::open4, none, 1},
      {Step::loop, 1, 0},
      {Step::loop, allCores, 0}}},
    {"anExplicitCloseClosesAtOnce",
     {{Step::open1, none, 1},
      {Step::close, none, 0},
      {Step::close, none, 0},
      {Step::loop, allCores, 0}}},
    {"nestedLoopsShareThePoolAndTheOutermostClosesIt",
     {{Step::open1, none, 1}, {Step::nestedLoop, 1, 0}, {Step::nestedLoop, allCores, 0}}},
    {"aCloseInsideALoopLeavesItToTheOutermost",
     {{Step::loopThatCloses, allCores, 0}, {Step::open1, none, 1}, {Step::loopThatCloses, 1, 0}}},
};

INSTANTIATE_TEST_SUITE_P(ThreadPool, PoolLifetime, testing::ValuesIn(lifetimes),
                         [](const testing::TestParamInfo<Lifetime>& info) {
	                         return std::string(info.param.name);
                         });

struct Nested
{
	Counts inner{0, 400};
	std::atomic<int> poolChanged{0};
	int poolSize = expectedPoolSize();
};

void innerLoop(void* data, int index, int, string_ext<char>&)
{
	Nested& nested = *static_cast<Nested*>(data);
	if (numberOfThreads() != nested.poolSize)
		nested.poolChanged.fetch_add(1);
	nested.inner.runs[static_cast<size_t>(index)].fetch_add(1);
}

struct Slice
{
	Nested* nested;
	int first;
};

void innerLoopAt(void* data, int index, int threadIndex, string_ext<char>& out)
{
	Slice& slice = *static_cast<Slice*>(data);
	innerLoop(slice.nested, slice.first + index, threadIndex, out);
}

void outerOnCaller(void* data, int, int, string_ext<char>&)
{
	Nested& nested = *static_cast<Nested*>(data);
	Slice slice{&nested, 0};
	parallelFor(&slice, innerLoopAt, 0, 400, false);
}

TEST(ParallelFor, ALoopInsideASerialBodyRunsOnThePool)
{
	Nested nested;
	parallelFor(&nested, outerOnCaller, 0, 1, true);
	EXPECT_EQ(runsNotOnce(nested.inner), 0);
	EXPECT_EQ(nested.poolChanged.load(), 0);
	expectClosed();
}

void writeLine(void* data, int index, int, string_ext<char>& out)
{
	out += "body " + std::to_string(index) + "\n";
	static_cast<std::atomic<int>*>(data)->fetch_add(1);
}

void throwingOutput(string_ext<char>&)
{
	throw std::runtime_error("output refused");
}

TEST(ParallelFor, AnExceptionLeavingALoopStillClosesThePool)
{
	std::atomic<int> runs{0};
	OsiThreadPool::setStdOutCallback(throwingOutput);
	EXPECT_THROW(parallelFor(&runs, writeLine, 0, 50, false), std::runtime_error);
	OsiThreadPool::setStdOutCallback(nullptr);
	expectClosed();

	Counts counts(0, 100);
	parallelFor(&counts, countRun, 0, 100, false);
	EXPECT_EQ(runsNotOnce(counts), 0) << "the pool did not recover";
	expectClosed();
}

// Loops started on several threads at once share the pool: their dispatchers
// race each other for the idle workers, and no index is lost or run twice.
class ConcurrentLoops : public testing::TestWithParam<int>
{};

TEST_P(ConcurrentLoops, EveryIndexOfEveryLoopRunsOnce)
{
	constexpr int count = 2000;
	std::vector<std::unique_ptr<Counts>> loops;
	for (int loop = 0; loop < GetParam(); ++loop)
		loops.push_back(std::make_unique<Counts>(loop * count, count));
	std::vector<std::thread> dispatchers;
	for (const auto& loop : loops)
		dispatchers.emplace_back([counts = loop.get()] {
			parallelFor(counts, countRun, counts->first, counts->first + count, false);
		});
	for (std::thread& dispatcher : dispatchers)
		dispatcher.join();
	for (const auto& loop : loops)
		EXPECT_EQ(runsNotOnce(*loop), 0) << "loop from " << loop->first;
	expectClosed();
}

INSTANTIATE_TEST_SUITE_P(ParallelFor, ConcurrentLoops, testing::Values(2, 4));

} // namespace
