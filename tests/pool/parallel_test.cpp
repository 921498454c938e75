// Parallel loops: which indices run, on which threads and in which order; the
// pool's size, life and sharing between nested loops.
#include "osi/pool/coparallel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <climits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

// Runs per index of [first, first + count); runs with a bad thread index or on the caller.
struct Counts
{
	Counts(int first, int count) : first(first), runs(static_cast<size_t>(count)) {}

	int first;
	std::vector<std::atomic<int>> runs;
	std::atomic<int> misplaced{0};
	OsdThreadId caller = OsdThread::threadId();
};

void countRun(void* data, int index, int threadIndex, string_ext<char>&)
{
	Counts& counts = *static_cast<Counts*>(data);
	counts.runs[static_cast<size_t>(index - counts.first)].fetch_add(1);
	counts.misplaced += threadIndex < 0 || threadIndex >= std::max(1, numberOfThreads()) ||
	                    counts.caller == OsdThread::threadId();
}

void expectClosed()
{
	EXPECT_EQ(numberOfThreads(), 0);
	EXPECT_EQ(OsiThreadPool::liveThreads(), 0);
}

// A plain range, or waves when priorities are given; the indices a serial run visits.
struct Loop
{
	const char* name;
	std::vector<int> priority;
	int begin;
	int end;
	bool withPriorities;
	std::vector<int> serialOrder;
};

void run(const Loop& loop, void* data, OsiParallelBody body, bool serial)
{
	if (loop.withPriorities)
		priorityParallelFor(data, body, loop.priority, loop.begin, loop.end, serial);
	else
		parallelFor(data, body, loop.begin, loop.end, serial);
}

const Loop loops[] = {
    {"emptyRange", {}, 5, 5, false, {}},
    {"reversedRange", {}, 5, 2, false, {}},
    {"negativeIndices", {}, -3, 2, false, {-3, -2, -1, 0, 1}},
    {"emptyWaves", {1, 2, 3}, 2, 2, true, {}},
    {"prioritiesMissingAtTheEnd", {0, 0, 0}, 0, 5, true, {}},
    {"prioritiesMissingBelowZero", {0, 0, 0}, -1, 2, true, {}},
    {"wavesInPriorityThenIndexOrder", {3, 1, 3, 0, 1, 9, 0}, 1, 7, true, {3, 6, 1, 4, 2, 5}},
};

// Serial: the indices in order, INT_MIN for a run off the caller or thread 0 or with a pool.
void recordSerial(void* data, int index, int threadIndex, string_ext<char>&)
{
	auto& seen = *static_cast<std::vector<int>*>(data);
	seen.push_back(index);
	if (threadIndex != 0 || !OsdThread::isMainThread() ||
	    numberOfThreads() + OsiThreadPool::liveThreads() != 0)
		seen.push_back(INT_MIN);
}

class Loops : public testing::TestWithParam<Loop>
{};

// In parallel the serial indices once each, and no pool for a loop that runs nothing.
TEST_P(Loops, VisitTheirIndices)
{
	const Loop& loop = GetParam();
	std::vector<int> seen;
	run(loop, &seen, recordSerial, true);
	EXPECT_EQ(seen, loop.serialOrder);

	Counts counts(-3, 16);
	testing::internal::CaptureStdout();
	run(loop, &counts, countRun, false);
	const std::string output = testing::internal::GetCapturedStdout();
	for (int index = -3; index < 13; ++index)
		EXPECT_EQ(counts.runs[static_cast<size_t>(index + 3)].load(),
		          std::count(loop.serialOrder.begin(), loop.serialOrder.end(), index))
		    << "index " << index;
	EXPECT_TRUE(!loop.serialOrder.empty() || output.find("*** Start thread") == std::string::npos)
	    << output;
	expectClosed();
}

INSTANTIATE_TEST_SUITE_P(ParallelFor, Loops, testing::ValuesIn(loops),
                         [](const testing::TestParamInfo<Loop>& info) { return info.param.name; });

// Each body waits (boundedly) until both have started: two workers at once.
void meet(void* data, int, int, string_ext<char>&)
{
	auto& arrived = *static_cast<std::atomic<int>*>(data);
	arrived.fetch_add(1);
	const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
	while (arrived.load() < 2 && std::chrono::steady_clock::now() < deadline)
		std::this_thread::yield();
	arrived.fetch_add(arrived.load() >= 2 ? 10 : 0);
}

TEST(ParallelFor, BodiesRunConcurrently)
{
	if (numberOfCores() < 2)
		GTEST_SKIP() << "one processor";
	std::atomic<int> arrived{0};
	parallelFor(&arrived, meet, 0, 2, false);
	EXPECT_EQ(arrived.load(), 22);
	expectClosed();
}

struct Waves
{
	std::vector<int> priority;
	std::vector<int> waveSize = std::vector<int>(5, 0);
	std::vector<std::atomic<int>> finished = std::vector<std::atomic<int>>(5);
	std::atomic<int> faults{0}; // early starts and singles off the caller
};

void runWave(void* data, int index, int threadIndex, string_ext<char>&)
{
	Waves& waves = *static_cast<Waves*>(data);
	const auto level = static_cast<size_t>(waves.priority[static_cast<size_t>(index)]);
	for (size_t lower = 0; lower < level; ++lower)
		waves.faults += waves.finished[lower].load() != waves.waveSize[lower];
	waves.faults += waves.waveSize[level] == 1 && (!OsdThread::isMainThread() || threadIndex != 0);
	// Give a later wave the chance to start too early.
	for (int i = 0; i < 200; ++i)
		std::this_thread::yield();
	waves.finished[level].fetch_add(1);
}

TEST(PriorityParallelFor, EachWaveEndsBeforeTheNextAndSinglesRunOnTheCaller)
{
	// Levels 0, 2 and 3 have many indices, levels 1 and 4 one each.
	Waves waves;
	for (int i = 0; i < 60; ++i)
		waves.priority.push_back(i == 17 ? 1 : i == 5 ? 4 : (i * 7) % 3 == 0 ? 0 : i % 2 ? 2 : 3);
	for (int level : waves.priority)
		++waves.waveSize[static_cast<size_t>(level)];
	priorityParallelFor(&waves, runWave, waves.priority, 0, 60, false);
	EXPECT_EQ(waves.faults.load(), 0);
	expectClosed();
}

constexpr int allCores = -1; // stands for one worker per core
constexpr int none = -2;     // a step that runs no body

// Open 1, 4 or 200 workers ('1', '4', 'M'), close ('c'), run a loop ('l'), nested loops
// ('n') or bodies that close the pool ('x'); the size the bodies saw, the size left.
struct Step
{
	char what;
	int seenByBodies;
	int afterwards;
};

// The pool size every body saw, INT_MIN if they differ.
struct Seen
{
	std::atomic<int> size{none};
	bool closes = false;
};

void recordPoolSize(void* data, int, int, string_ext<char>&)
{
	Seen& seen = *static_cast<Seen*>(data);
	if (seen.closes)
		closeThreadPool();
	const int size = numberOfThreads();
	int first = none;
	if (!seen.size.compare_exchange_strong(first, size) && first != size)
		seen.size = INT_MIN;
}

void recordInInnerLoop(void* data, int, int, string_ext<char>&)
{
	parallelFor(data, recordPoolSize, 0, 8, false);
}

// The pool size the bodies saw, or none.
int take(char what, Seen& seen)
{
	seen.closes = what == 'x';
	if (what == '1' || what == '4' || what == 'M')
		return openThreadPool(what == 'M' ? 200 : what - '0') ? none : INT_MIN;
	if (what == 'c')
		return closeThreadPool(), none;
	parallelFor(&seen, what == 'n' ? recordInInnerLoop : recordPoolSize, 0, 16, false);
	return seen.size;
}

class PoolLifetime : public testing::TestWithParam<std::vector<Step>>
{};

TEST_P(PoolLifetime, ThreadCountsFollowEachStep)
{
	const auto resolve = [](int count) { return count == allCores ? numberOfCores() : count; };
	testing::internal::CaptureStdout();
	for (const Step& step : GetParam())
	{
		Seen seen;
		EXPECT_EQ(take(step.what, seen), resolve(step.seenByBodies)) << "step " << step.what;
		EXPECT_EQ(numberOfThreads(), resolve(step.afterwards)) << "after step " << step.what;
	}
	testing::internal::GetCapturedStdout();
	closeThreadPool();
	expectClosed();
}

// Capped at the cores; an explicit pool serves until a loop ends; nested loops share
// it and the outermost closes it, also after a close inside.
INSTANTIATE_TEST_SUITE_P(
    ThreadPool, PoolLifetime,
    testing::Values(
        std::vector<Step>{{'l', allCores, 0}, {'l', allCores, 0}},
        std::vector<Step>{{'M', none, allCores}, {'l', allCores, 0}},
        std::vector<Step>{{'1', none, 1}, {'4', none, 1}, {'l', 1, 0}, {'l', allCores, 0}},
        std::vector<Step>{{'1', none, 1}, {'c', none, 0}, {'c', none, 0}, {'l', allCores, 0}},
        std::vector<Step>{{'1', none, 1}, {'n', 1, 0}, {'n', allCores, 0}},
        std::vector<Step>{{'x', allCores, 0}, {'1', none, 1}, {'x', 1, 0}}));

// Loops started on several threads share the pool, their dispatchers racing for workers.
TEST(ParallelFor, EveryIndexOfConcurrentLoopsRunsOnce)
{
	constexpr int count = 2000;
	std::vector<std::unique_ptr<Counts>> loops;
	std::vector<std::thread> dispatchers;
	for (int loop = 0; loop < 4; ++loop)
	{
		loops.push_back(std::make_unique<Counts>(loop * count, count));
		dispatchers.emplace_back([counts = loops.back().get()] {
			parallelFor(counts, countRun, counts->first, counts->first + count, false);
		});
	}
	for (std::thread& dispatcher : dispatchers)
		dispatcher.join();
	for (const auto& loop : loops)
		EXPECT_TRUE(loop->misplaced == 0 &&
		            std::all_of(loop->runs.begin(), loop->runs.end(),
		                        [](const std::atomic<int>& n) { return n == 1; }))
		    << "loop from " << loop->first;
	expectClosed();
}

} // namespace
