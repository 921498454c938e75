// The cost of process() at 48 kHz, block 512: nanoseconds per sample and the
// real-time factor, for a constant centre angle, a constant angle of 60
// degrees (the far-channel filter path) and a glide (one change from 0 to 60,
// after which every block glides). Each case is timed beside the plain
// per-sample reference, and the speed-up over it is printed at the end.
#include "nxvelora_processor.h"
#include "support/naive_pan.h"
#include "support/processor_harness.h"
#include "time_reporter.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <random>
#include <string>

namespace {

using namespace velora_test;

constexpr double kRate = 48000.0;
constexpr int32 kBlock = 512;

struct Case
{
	const char* name;
	double from; // angle before the one change
	double to;   // angle after it
};
const Case kCases[] = {
    {"constant_0", 0.0, 0.0}, {"constant_60", 60.0, 60.0}, {"glide_0_to_60", 0.0, 60.0}};

std::vector<float> noiseBlock()
{
	std::mt19937 rng(11);
	std::uniform_real_distribution<float> dist(-1.0f, 1.0f);
	std::vector<float> v(kBlock);
	for (auto& s : v)
		s = dist(rng);
	return v;
}

void report(benchmark::State& state)
{
	const double samples = static_cast<double>(state.iterations()) * kBlock;
	state.SetItemsProcessed(static_cast<int64_t>(samples));
	state.counters["ns_per_sample"] =
	    benchmark::Counter(samples, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
	// Real-time factor: seconds of audio per second of processing.
	state.counters["realtime_x"] = benchmark::Counter(samples / kRate, benchmark::Counter::kIsRate);
}

void BM_Process(benchmark::State& state, Case c)
{
	ProcessorHarness host(NxVeloraProcessor::createInstance(nullptr), kRate, kBlock);
	const auto in = noiseBlock();
	// Reach the case's state: settled at `from`, then (for the glide) one change.
	host.runWithPan(in, normalizedPan(c.from));
	host.runWithPan(in, normalizedPan(c.from));
	if (c.to != c.from)
		host.runWithPan(in, normalizedPan(c.to));
	IAudioProcessor* audio = host.processor();
	// The harness keeps the process data; one more block with no change repeats the state.
	HostProcessData data;
	FUnknownPtr<IComponent> comp(audio);
	data.prepare(*comp, kBlock, kSample32);
	data.numSamples = kBlock;
	std::copy(in.begin(), in.end(), data.inputs[0].channelBuffers32[0]);
	for (auto _ : state)
	{
		audio->process(data);
		benchmark::DoNotOptimize(data.outputs[0].channelBuffers32[0][kBlock - 1]);
	}
	data.unprepare();
	report(state);
}

void BM_NaiveReference(benchmark::State& state, Case c)
{
	VeloraLaw law(kRate);
	const auto in = noiseBlock();
	std::vector<float> left(kBlock), right(kBlock);
	for (auto _ : state)
	{
		naivePan(law, c.from, c.to, in.data(), left.data(), right.data(), kBlock);
		benchmark::DoNotOptimize(left[kBlock - 1]);
	}
	report(state);
}

// Collects ns/sample per run so the speed-ups can be printed after the table.
} // namespace

int main(int argc, char** argv)
{
	for (const Case& c : kCases)
	{
		benchmark::RegisterBenchmark((std::string("process/") + c.name).c_str(), BM_Process, c);
		benchmark::RegisterBenchmark((std::string("naive_reference/") + c.name).c_str(),
		                             BM_NaiveReference, c);
	}
	benchmark::Initialize(&argc, argv);
	TimeReporter reporter;
	benchmark::RunSpecifiedBenchmarks(&reporter);
	std::printf("\nspeed-up of process over the plain per-sample reference:\n");
	for (const Case& c : kCases)
	{
		const double real = reporter.nanoseconds(std::string("process/") + c.name) / kBlock;
		const double naive =
		    reporter.nanoseconds(std::string("naive_reference/") + c.name) / kBlock;
		if (real > 0)
			std::printf("  %-14s %6.2fx  (%.2f vs %.2f ns/sample)\n", c.name, naive / real, real,
			            naive);
	}
	benchmark::Shutdown();
	return 0;
}
