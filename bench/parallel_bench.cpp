// parallelFor against GCC's OpenMP (libgomp, "#pragma omp parallel for" with
// its default schedule) on the same machine in one run. Bodies spin for about
// 1 us, 10 us, 100 us and 1 ms; each loop does about 40 ms of serial work. The
// table at the end gives both speed-ups over the plain serial loop and their
// ratio (goals: pool / OpenMP at 0.92 or more for 100 us bodies, 0.6 for
// 10 us), and what one index costs the pool with an empty body (goal: 1.5 us
// at most) beside its floor: one round trip between two threads through the
// pool's semaphores. Each case runs five times; the table takes the fastest.
//
// The pool closes when the last loop using it ends, so a benchmark that ran
// one bare parallelFor per iteration would time starting and joining the
// workers. The pool cases therefore run their measured loops inside an
// enclosing loop's hold on the pool (OsiThreadPool::enterLoop / leaveLoop,
// as parallelFor holds it around its own runs): the workers start once,
// before the first timed iteration, and stop after the last. Only
// pool_opened_per_loop times a loop that opens and closes its own pool.
#include "osi/pool/coparallel.h"

#include "time_reporter.h"

#include <benchmark/benchmark.h>
#include <omp.h>

#include <sys/resource.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <map>
#include <string>
#include <thread>

namespace {

const int kBodyMicroseconds[] = {1, 10, 100, 1000};
constexpr int kSerialWorkMicroseconds = 40000;
constexpr int kCostIndices = 20000;
constexpr int kRepetitions = 5;

double iterationsPerMicrosecond = 0;
// The workers that the pool ran its loops with (it is closed by the summary).
int poolSize = 0;

double spin(long iterations)
{
	double x = 1.0;
	for (long i = 0; i < iterations; ++i)
		x = x * 1.0000001 + 1e-9;
	return x;
}

void calibrate()
{
	constexpr long probe = 20000000;
	const auto start = std::chrono::steady_clock::now();
	benchmark::DoNotOptimize(spin(probe));
	const std::chrono::duration<double, std::micro> took = std::chrono::steady_clock::now() - start;
	iterationsPerMicrosecond = probe / took.count();
}

struct Work
{
	long iterations;
};

void spinBody(void* data, int, int, string_ext<char>&)
{
	benchmark::DoNotOptimize(spin(static_cast<const Work*>(data)->iterations));
}

void emptyBody(void*, int, int, string_ext<char>&) {}

int indicesFor(int microseconds)
{
	return kSerialWorkMicroseconds / microseconds;
}

long iterationsFor(int microseconds)
{
	return static_cast<long>(iterationsPerMicrosecond * microseconds);
}

void BM_Serial(benchmark::State& state, int microseconds)
{
	const int n = indicesFor(microseconds);
	const long iterations = iterationsFor(microseconds);
	for (auto _ : state)
	{
		for (int i = 0; i < n; ++i)
			benchmark::DoNotOptimize(spin(iterations));
	}
}

// Holds the pool open, with every core, the way an enclosing loop does.
class EnclosingLoop
{
public:
	EnclosingLoop() { OsiThreadPool::enterLoop(); }
	~EnclosingLoop() { OsiThreadPool::leaveLoop(); }
	EnclosingLoop(const EnclosingLoop&) = delete;
	EnclosingLoop& operator=(const EnclosingLoop&) = delete;
};

void BM_Pool(benchmark::State& state, int microseconds)
{
	const int n = indicesFor(microseconds);
	Work work{iterationsFor(microseconds)};
	EnclosingLoop hold;
	poolSize = numberOfThreads();
	for (auto _ : state)
		parallelFor(&work, spinBody, 0, n, false);
}

void BM_OpenMP(benchmark::State& state, int microseconds)
{
	const int n = indicesFor(microseconds);
	const long iterations = iterationsFor(microseconds);
	for (auto _ : state)
	{
#pragma omp parallel for
		for (int i = 0; i < n; ++i)
			benchmark::DoNotOptimize(spin(iterations));
	}
}

// A loop without an explicit open starts and stops its workers itself.
void BM_PoolOpenedPerLoop(benchmark::State& state, int microseconds)
{
	const int n = indicesFor(microseconds);
	Work work{iterationsFor(microseconds)};
	for (auto _ : state)
		parallelFor(&work, spinBody, 0, n, false);
}

long contextSwitches()
{
	rusage usage{};
	getrusage(RUSAGE_SELF, &usage);
	return usage.ru_nvcsw + usage.ru_nivcsw;
}

// Also counts the context switches of the whole process per index: each one
// is a thread that slept (or was pushed off its processor) during a hand-over.
void BM_PoolEmpty(benchmark::State& state)
{
	EnclosingLoop hold;
	const long before = contextSwitches();
	for (auto _ : state)
		parallelFor(nullptr, emptyBody, 0, kCostIndices, false);
	state.counters["switches_per_index"] = static_cast<double>(contextSwitches() - before) /
	                                       (static_cast<double>(state.iterations()) * kCostIndices);
}

// The floor under one hand-over: a unit sent to another thread and one sent
// back, through the semaphores that the pool hands its runs over with.
void BM_SemaphorePingPong(benchmark::State& state)
{
	OsdSemaphore ping("ping", 0, 1);
	OsdSemaphore pong("pong", 0, 1);
	std::atomic<bool> stop{false};
	std::thread partner([&] {
		while (ping.waitOnSemaphore(OsdInfiniteWait) == 0 && !stop.load())
			pong.signal(1);
	});
	for (auto _ : state)
	{
		ping.signal(1);
		pong.waitOnSemaphore(OsdInfiniteWait);
	}
	stop.store(true);
	ping.signal(1);
	partner.join();
}

void BM_OpenMPEmpty(benchmark::State& state)
{
	for (auto _ : state)
	{
#pragma omp parallel for
		for (int i = 0; i < kCostIndices; ++i)
			benchmark::ClobberMemory();
	}
}

void repeated(benchmark::internal::Benchmark* benchmark)
{
	benchmark->UseRealTime()->Repetitions(kRepetitions);
}

std::string name(const char* what, int microseconds)
{
	return std::string(what) + "/" + std::to_string(microseconds) + "us";
}

TimeReporter reporter;

double measured(const std::string& benchmarkName)
{
	// The reported name carries the repetitions and the real-time suffix.
	return reporter.nanoseconds(benchmarkName + "/repeats:" + std::to_string(kRepetitions) +
	                            "/real_time");
}

void printTable()
{
	std::printf("\n%d processors, pool of %d workers, OpenMP team of %d\n", numberOfCores(),
	            poolSize, omp_get_max_threads());
	std::printf("%8s %8s %12s %12s %12s %14s\n", "body", "indices", "serial ms", "pool x",
	            "OpenMP x", "pool/OpenMP");
	for (int us : kBodyMicroseconds)
	{
		const double serial = measured(name("serial", us));
		const double pool = measured(name("pool", us));
		const double omp = measured(name("openmp", us));
		if (serial <= 0 || pool <= 0 || omp <= 0)
			continue;
		std::printf("%6d us %8d %12.2f %12.2f %12.2f %14.2f\n", us, indicesFor(us), serial / 1e6,
		            serial / pool, serial / omp, omp / pool);
	}
	const double perLoop = measured(name("pool_opened_per_loop", 100));
	if (perLoop > 0)
		std::printf("100 us bodies, pool opened by each loop: %.2fx over serial\n",
		            measured(name("serial", 100)) / perLoop);
	const double poolEmpty = measured("pool_empty_body");
	const double ompEmpty = measured("openmp_empty_body");
	if (poolEmpty > 0 && ompEmpty > 0)
		std::printf("cost per index (empty body): pool %.0f ns, OpenMP %.1f ns\n",
		            poolEmpty / kCostIndices, ompEmpty / kCostIndices);
	const double roundTrip = measured("semaphore_ping_pong");
	if (roundTrip > 0)
		std::printf("floor: one semaphore round trip between two threads %.0f ns\n", roundTrip);
}

} // namespace

int main(int argc, char** argv)
{
	calibrate();
	for (int us : kBodyMicroseconds)
	{
		repeated(benchmark::RegisterBenchmark(name("serial", us).c_str(), BM_Serial, us));
		repeated(benchmark::RegisterBenchmark(name("pool", us).c_str(), BM_Pool, us));
		repeated(benchmark::RegisterBenchmark(name("openmp", us).c_str(), BM_OpenMP, us));
	}
	repeated(benchmark::RegisterBenchmark(name("pool_opened_per_loop", 100).c_str(),
	                                      BM_PoolOpenedPerLoop, 100));
	repeated(benchmark::RegisterBenchmark("pool_empty_body", BM_PoolEmpty));
	repeated(benchmark::RegisterBenchmark("openmp_empty_body", BM_OpenMPEmpty));
	repeated(benchmark::RegisterBenchmark("semaphore_ping_pong", BM_SemaphorePingPong));
	benchmark::Initialize(&argc, argv);
	benchmark::RunSpecifiedBenchmarks(&reporter);
	printTable();
	benchmark::Shutdown();
	return 0;
}
