// The audio processor through the SDK interfaces: buses and arrangements, the
// pan law's published gains and filter, every block against the plain
// per-sample reference, and no allocation in process (every global
// allocation in this binary is counted).
#include "nxvelora_processor.h"
#include "support/naive_pan.h"
#include "support/processor_harness.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>
#include <random>
#include <string>
#include <tuple>

namespace {
std::atomic<long> allocations{0};
}

void* operator new(std::size_t size)
{
	++allocations;
	if (void* p = std::malloc(size ? size : 1))
		return p;
	throw std::bad_alloc();
}
void operator delete(void* p) noexcept
{
	std::free(p);
}
void operator delete(void* p, std::size_t) noexcept
{
	std::free(p);
}

namespace velora_test {
namespace {

constexpr double kRate = 48000.0;
constexpr int32 kBlock = 256;

std::vector<float> noise(size_t n, unsigned seed = 1)
{
	std::mt19937 rng(seed);
	std::uniform_real_distribution<float> dist(-1.0f, 1.0f);
	std::vector<float> v(n);
	for (auto& s : v)
		s = dist(rng);
	return v;
}

FUnknown* newProcessor()
{
	return NxVeloraProcessor::createInstance(nullptr);
}

TEST(Processor, BusesAndArrangements)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock, false);
	IComponent* comp = host.component();
	ASSERT_EQ(comp->getBusCount(kAudio, kInput), 1);
	ASSERT_EQ(comp->getBusCount(kAudio, kOutput), 1);
	for (const auto& [direction, channels, name] :
	     {std::tuple{kInput, 1, u"Mono In"}, std::tuple{kOutput, 2, u"Stereo Out"}})
	{
		BusInfo info{};
		comp->getBusInfo(kAudio, direction, 0, info);
		EXPECT_EQ(info.channelCount, channels);
		EXPECT_EQ(info.busType, kMain);
		EXPECT_TRUE(info.flags & BusInfo::kDefaultActive);
		EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(info.name)), name);
	}

	struct Request
	{
		SpeakerArrangement in[2];
		int32 inputs;
		SpeakerArrangement out;
		tresult answer;
	};
	const SpeakerArrangement mono = SpeakerArr::kMono, stereo = SpeakerArr::kStereo;
	const Request requests[] = {{{mono}, 1, stereo, kResultTrue},
	                            {{stereo}, 1, stereo, kResultTrue},
	                            {{SpeakerArr::k51}, 1, stereo, kResultFalse},
	                            {{mono}, 1, mono, kResultFalse},
	                            {{mono}, 0, stereo, kResultFalse},
	                            {{mono, mono}, 2, stereo, kResultFalse}};
	IAudioProcessor* audio = host.processor();
	for (const Request& r : requests)
	{
		SpeakerArrangement in[2] = {r.in[0], r.in[1]}, out = r.out;
		EXPECT_EQ(audio->setBusArrangements(in, r.inputs, &out, 1), r.answer)
		    << r.inputs << " inputs of " << r.in[0] << " to " << r.out;
	}

	ProcessSetup setup{kRealtime, kSample64, kBlock, kRate};
	EXPECT_EQ(audio->setupProcessing(setup), kResultFalse);

	// Never activated, it leaves the outputs as they are.
	const auto out = host.run(noise(kBlock), {}, 0.25f);
	EXPECT_EQ(out.left, std::vector<float>(kBlock, 0.25f));
	EXPECT_EQ(out.right, out.left);
}

// Settled at +90 degrees the far (left) channel is the low-passed input times
// the published gain and the far-channel factor.
TEST(Processor, SettledFarChannelGivesThePublishedGains)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock);
	const auto in = noise(2 * kBlock, 3);
	host.runWithPan({in.begin(), in.begin() + kBlock}, 1.0);                // glides from 0
	const auto out = host.runWithPan({in.begin() + kBlock, in.end()}, 1.0); // settled
	LowPassFilter filter(kRate, 1000.0);
	for (size_t i = 0; i < in.size(); ++i)
	{
		const double f = filter.y(in[i]);
		if (i >= kBlock)
		{
			EXPECT_EQ(out.left[i - kBlock], static_cast<float>(f * (-0.6000523 * 1.125214))) << i;
		}
	}
}

// Bit for bit against the plain per-sample reference over blocks of many sizes:
// steady angles, glides across knots and +-30 degrees, repeated glides, queues
// of several points and of other parameters, reactivation, and knots hit exactly.
TEST(Processor, MatchesThePlainReferenceBitForBit)
{
	ProcessorHarness host(newProcessor(), kRate, 1024);
	auto law = std::make_unique<VeloraLaw>(kRate);
	double previous = 0.0, current = 0.0;
	std::mt19937 rng(2024);
	std::uniform_real_distribution<double> anyValue(0.0, 1.0);
	unsigned block = 0;
	// One block after the given queue for the pan parameter (none when empty),
	// behind a change to another parameter.
	const auto check = [&](int32 size, const std::vector<double>& queue) {
		SCOPED_TRACE("block " + std::to_string(block));
		const auto in = noise(static_cast<size_t>(size), block++);
		std::vector<std::pair<ParamID, std::vector<double>>> changes;
		if (!queue.empty())
		{
			changes.push_back({101, {anyValue(rng)}});
			changes.push_back({100, queue});
			previous = current;
			current = queue.back() * 180.0 - 90.0;
		}
		if (block % 97 == 96)
		{
			host.component()->setActive(false);
			host.component()->setActive(true);
			law = std::make_unique<VeloraLaw>(kRate);
		}
		const auto out = host.run(in, changes);
		std::vector<float> l(static_cast<size_t>(size)), r(static_cast<size_t>(size));
		naivePan(*law, previous, current, in.data(), l.data(), r.data(), size);
		if (size == 0)
			return; // an empty block has no buffers to compare
		ASSERT_EQ(0, std::memcmp(out.left.data(), l.data(), sizeof(float) * l.size()))
		    << "from " << previous << " to " << current;
		ASSERT_EQ(0, std::memcmp(out.right.data(), r.data(), sizeof(float) * r.size()))
		    << "from " << previous << " to " << current;
	};
	std::uniform_int_distribution<int> knot(0, VeloraLaw::n - 1);
	const int32 sizes[] = {1, 2, 3, 7, 63, 64, 65, 128, 500, 512, 1024, 0};
	for (int i = 0; i < 600 && !HasFatalFailure(); ++i)
	{
		const int32 size = sizes[i % (sizeof(sizes) / sizeof(sizes[0]))];
		const int choice = i % 5;
		const double value = choice == 0 ? anyValue(rng) : normalizedPan(VeloraLaw::x[knot(rng)]);
		if (choice == 2)
			check(size, {anyValue(rng), value});
		else if (choice < 3)
			check(size, {value});
		else
			check(size, {});
	}
	for (const double x : VeloraLaw::x)
		for (const double nudge : {1e-16, 2e-16})
			for (const int32 size : {64, 512, 1024})
				for (const double side : {-1.0, 1.0, -1.0})
					if (!HasFatalFailure())
						check(size, {normalizedPan(x) + side * nudge});
}

// The law's published gains (beyond the ends the end segments go on), and
// its shape: falling from -80 to +90, with its maximum near -80.
TEST(PanLaw, PublishedGainsAndTheShapeBetweenThem)
{
	const auto gain = VeloraLaw::gainAt;
	const std::pair<double, double> published[] = {
	    {-90.0, 1.25527334}, {-30.0, 1.0}, {0.0, 0.56811975}, {30.0, 0.0}, {90.0, -0.6000523}};
	for (const auto& [angle, expected] : published)
		EXPECT_EQ(gain(angle), expected) << angle;
	EXPECT_NEAR(gain(95.0), -0.6026, 1e-4);
	for (double a = -79.75; a <= 90.0; a += 0.25)
		EXPECT_LT(gain(a), gain(a - 0.25)) << "at " << a;
	for (double a = -90.0; a < -80.0; a += 0.25)
		EXPECT_LT(gain(a), gain(-80.0) + 1e-4) << "at " << a;
}

// The far channel's filter: a bilinear first-order low-pass at 1 kHz, which
// passes a constant whole and is silent after a reset.
TEST(PanLaw, TheFilterHasTheResponseOfItsDesign)
{
	for (double f : {0.0, 100.0, 1000.0, 8000.0})
	{
		VeloraLaw law(kRate);
		LowPassFilter& filter = law.filter();
		double peak = 0.0;
		for (int i = 0; i < 48000; ++i)
		{
			const double v = filter.y(f == 0.0 ? 1.0 : std::sin(2 * M_PI * f * i / kRate));
			if (i > 24000)
				peak = std::max(peak, std::fabs(v));
		}
		const double ratio = std::tan(M_PI * f / kRate) / std::tan(M_PI * 1000.0 / kRate);
		EXPECT_NEAR(peak, 1.0 / std::sqrt(1.0 + ratio * ratio), 2e-3) << f << " Hz";
		filter.reset();
		EXPECT_EQ(filter.y(0.0), 0.0) << f << " Hz";
	}
}

// Constant, gliding, far-channel and settled blocks, with and without changes.
TEST(Processor, ProcessAllocatesNothing)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock);
	HostProcessData data;
	data.prepare(*host.component(), kBlock, kSample32);
	data.numSamples = kBlock;
	ParameterChanges changes(1);
	data.inputParameterChanges = &changes;
	for (int32 i = 0; i < kBlock; ++i)
		data.inputs[0].channelBuffers32[0][i] = static_cast<float>((i % 17) - 8) / 8.0f;
	for (double v : {0.5, 0.5, 0.9, 0.9, 0.0, 0.1, 1.0, 1.0})
		for (const bool withChange : {true, false})
		{
			changes.clearQueue();
			int32 index = 0;
			if (withChange)
				changes.addParameterData(100, index)->addPoint(0, v, index);
			const long before = allocations.load();
			host.processor()->process(data);
			EXPECT_EQ(allocations.load(), before) << v << (withChange ? " with" : " after");
		}
	data.unprepare();
}

} // namespace
} // namespace velora_test
