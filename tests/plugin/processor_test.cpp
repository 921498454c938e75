// The audio processor through the SDK interfaces: buses, arrangements, sample
// sizes, activation, parameter queues, the glide and the far channel.
#include "nxvelora_processor.h"
#include "support/naive_pan.h"
#include "support/processor_harness.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>

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

// The far channel beyond 30 degrees: the input through the law's filter.
std::vector<double> lowPassed(const std::vector<float>& in, double rate = kRate)
{
	LowPassFilter filter(rate, 1000.0);
	std::vector<double> out;
	for (float s : in)
		out.push_back(filter.y(s));
	return out;
}

TEST(Processor, BusesAndArrangements)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock, false);
	IComponent* comp = host.component();
	ASSERT_EQ(comp->getBusCount(kAudio, kInput), 1);
	ASSERT_EQ(comp->getBusCount(kAudio, kOutput), 1);
	BusInfo info{};
	comp->getBusInfo(kAudio, kInput, 0, info);
	EXPECT_EQ(info.channelCount, 1);
	EXPECT_EQ(info.busType, kMain);
	EXPECT_TRUE(info.flags & BusInfo::kDefaultActive);
	EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(info.name)), u"Mono In");
	comp->getBusInfo(kAudio, kOutput, 0, info);
	EXPECT_EQ(info.channelCount, 2);
	EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(info.name)), u"Stereo Out");

	IAudioProcessor* audio = host.processor();
	SpeakerArrangement mono = SpeakerArr::kMono, stereo = SpeakerArr::kStereo;
	SpeakerArrangement surround = SpeakerArr::k51;
	EXPECT_EQ(audio->setBusArrangements(&mono, 1, &stereo, 1), kResultTrue);
	EXPECT_EQ(audio->setBusArrangements(&stereo, 1, &stereo, 1), kResultTrue);
	EXPECT_EQ(audio->setBusArrangements(&surround, 1, &stereo, 1), kResultFalse);
	EXPECT_EQ(audio->setBusArrangements(&mono, 1, &mono, 1), kResultFalse);
	EXPECT_EQ(audio->setBusArrangements(&mono, 0, &stereo, 1), kResultFalse);
	SpeakerArrangement two[2] = {SpeakerArr::kMono, SpeakerArr::kMono};
	EXPECT_EQ(audio->setBusArrangements(two, 2, &stereo, 1), kResultFalse);

	// Fixed answers whatever was accepted, and for any index.
	SpeakerArrangement arr = 0;
	EXPECT_EQ(audio->getBusArrangement(kInput, 0, arr), kResultTrue);
	EXPECT_EQ(arr, SpeakerArr::kMono);
	EXPECT_EQ(audio->getBusArrangement(kOutput, 5, arr), kResultTrue);
	EXPECT_EQ(arr, SpeakerArr::kStereo);
	EXPECT_EQ(audio->getBusArrangement(7, 0, arr), kResultFalse);

	EXPECT_EQ(audio->canProcessSampleSize(kSample32), kResultTrue);
	EXPECT_EQ(audio->canProcessSampleSize(kSample64), kResultFalse);
	ProcessSetup setup{kRealtime, kSample64, kBlock, kRate};
	EXPECT_EQ(audio->setupProcessing(setup), kResultFalse);
}

TEST(Processor, ControllerClassIsTheEditController)
{
	FUnknownPtr<IComponent> comp(owned(newProcessor()));
	TUID cid;
	ASSERT_EQ(comp->getControllerClassId(cid), kResultTrue);
	EXPECT_TRUE(FUID::fromTUID(cid) == FUID(0x79E776E5, 0xECD64C06, 0xBB7F0A47, 0x69541053));
}

TEST(Processor, CentreGivesEqualGainsOnBothSides)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock);
	const auto in = noise(kBlock);
	const auto out = host.run(in);
	for (int32 i = 0; i < kBlock; ++i)
	{
		EXPECT_EQ(out.left[i], static_cast<float>(in[i] * 0.56811975));
		EXPECT_EQ(out.right[i], out.left[i]);
	}
}

TEST(Processor, ThirtyDegreesPutsTheSignalInOneChannel)
{
	for (double angle : {-30.0, 30.0})
	{
		ProcessorHarness host(newProcessor(), kRate, kBlock);
		const auto in = noise(kBlock);
		host.runWithPan(in, normalizedPan(angle));                  // glides from 0
		const auto out = host.runWithPan(in, normalizedPan(angle)); // settles
		const auto& near = angle < 0 ? out.left : out.right;
		const auto& far = angle < 0 ? out.right : out.left;
		for (int32 i = 0; i < kBlock; ++i)
		{
			EXPECT_EQ(near[i], in[i]) << angle;
			EXPECT_EQ(far[i], 0.0f) << angle;
		}
	}
}

TEST(Processor, FullRightCarriesTheFilteredInvertedCopyOnTheLeft)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock);
	const auto in = noise(4 * kBlock, 3);
	std::vector<float> left, right;
	for (int b = 0; b < 4; ++b)
	{
		std::vector<float> block(in.begin() + b * kBlock, in.begin() + (b + 1) * kBlock);
		auto out = b < 2 ? host.runWithPan(block, 1.0) : host.run(block);
		left.insert(left.end(), out.left.begin(), out.left.end());
		right.insert(right.end(), out.right.begin(), out.right.end());
	}
	const auto f = lowPassed(in);
	// Blocks 1..3 sit at +90 (block 0 glides there from 0).
	for (size_t i = kBlock; i < in.size(); ++i)
	{
		EXPECT_EQ(right[i], static_cast<float>(in[i] * 1.25527334)) << i;
		EXPECT_EQ(left[i], static_cast<float>(f[i] * -0.6000523 * 1.125214)) << i;
	}
}

TEST(Processor, OnlyTheLastPointOfAQueueCounts)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock);
	const auto in = noise(kBlock);
	host.run(in, {{100, {0.0, 1.0, normalizedPan(-30)}}});
	const auto out = host.run(in, {{100, {0.9, normalizedPan(-30)}}});
	for (int32 i = 0; i < kBlock; ++i)
	{
		EXPECT_EQ(out.left[i], in[i]);
		EXPECT_EQ(out.right[i], 0.0f);
	}
}

TEST(Processor, OneChangeRepeatsItsGlideInEveryLaterBlock)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock);
	const auto in = noise(kBlock, 5);
	const auto first = host.runWithPan(in, normalizedPan(60));
	const auto second = host.run(in);
	const auto third = host.run(in);
	// Every block starts again at 0 degrees and heads for 60.
	EXPECT_EQ(first.left[0], static_cast<float>(in[0] * 0.56811975));
	EXPECT_EQ(second.left[0], static_cast<float>(in[0] * 0.56811975));
	EXPECT_EQ(second.right, third.right);
	// The near (right) channel does not depend on filter history: identical.
	EXPECT_EQ(first.right, second.right);
	// The glide is the one the plain per-sample reference computes.
	VeloraLaw law(kRate);
	std::vector<float> l(kBlock), r(kBlock);
	naivePan(law, 0.0, 60.0, in.data(), l.data(), r.data(), kBlock);
	EXPECT_EQ(first.left, l);
	EXPECT_EQ(first.right, r);
}

// The processor's rendering against the plain per-sample reference, bit for
// bit, over many blocks of many sizes: steady angles, glides across every
// knot and across +-30 degrees, repeated glides, knots hit exactly, and
// glides across a knot so short that their rounded angles waver about it.
TEST(Processor, MatchesThePlainReferenceBitForBit)
{
	ProcessorHarness host(newProcessor(), kRate, 1024);
	VeloraLaw law(kRate);
	double previous = 0.0, current = 0.0;
	unsigned block = 0;
	// One block, after a change to value unless it is negative.
	const auto check = [&](int32 size, double value) {
		const auto in = noise(static_cast<size_t>(size), block++);
		std::vector<std::pair<ParamID, std::vector<double>>> changes;
		if (value >= 0.0)
		{
			changes.push_back({100, {value}});
			previous = current;
			current = value * (90.0 - -90.0) + -90.0;
		}
		const auto out = host.run(in, changes);
		std::vector<float> l(size), r(size);
		naivePan(law, previous, current, in.data(), l.data(), r.data(), size);
		ASSERT_EQ(0, std::memcmp(out.left.data(), l.data(), sizeof(float) * size))
		    << "block " << block << " from " << previous << " to " << current;
		ASSERT_EQ(0, std::memcmp(out.right.data(), r.data(), sizeof(float) * size))
		    << "block " << block << " from " << previous << " to " << current;
	};
	std::mt19937 rng(2024);
	std::uniform_real_distribution<double> anyValue(0.0, 1.0);
	std::uniform_int_distribution<int> knot(0, VeloraLaw::n - 1);
	const int32 sizes[] = {1, 2, 3, 7, 63, 64, 65, 128, 500, 512, 1024};
	for (int i = 0; i < 600 && !HasFatalFailure(); ++i)
	{
		const int choice = i % 4;
		check(sizes[i % (sizeof(sizes) / sizeof(sizes[0]))],
		      choice == 0   ? anyValue(rng)
		      : choice == 3 ? -1.0
		                    : normalizedPan(VeloraLaw::x[knot(rng)]));
	}
	for (const double x : VeloraLaw::x)
		for (const double nudge : {1e-16, 2e-16})
			for (const int32 size : {64, 512, 1024})
				for (const double side : {-1.0, 1.0, -1.0})
					if (!HasFatalFailure())
						check(size, normalizedPan(x) + side * nudge);
}

TEST(Processor, QueuesForOtherParametersAreIgnored)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock);
	const auto in = noise(kBlock);
	const auto out = host.run(in, {{101, {1.0}}, {0, {0.0}}});
	for (int32 i = 0; i < kBlock; ++i)
		EXPECT_EQ(out.left[i], static_cast<float>(in[i] * 0.56811975));
}

TEST(Processor, StereoInputAcceptedButOnlyChannelZeroIsRead)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock, false);
	SpeakerArrangement stereo = SpeakerArr::kStereo;
	ASSERT_EQ(host.processor()->setBusArrangements(&stereo, 1, &stereo, 1), kResultTrue);
	host.component()->setActive(true);
	const auto in = noise(kBlock);
	const auto out = host.run(in);
	for (int32 i = 0; i < kBlock; ++i)
		EXPECT_EQ(out.left[i], static_cast<float>(in[i] * 0.56811975));
	host.component()->setActive(false);
}

TEST(Processor, NeverActivatedLeavesOutputsUntouched)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock, false);
	const auto out = host.run(noise(kBlock), {{100, {1.0}}}, 0.25f);
	for (int32 i = 0; i < kBlock; ++i)
	{
		EXPECT_EQ(out.left[i], 0.25f);
		EXPECT_EQ(out.right[i], 0.25f);
	}
}

TEST(Processor, EmptyBlockWritesNothing)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock);
	const auto out = host.run({}, {{100, {1.0}}});
	EXPECT_TRUE(out.left.empty());
	// The change still counts: the next block glides from 0 to 90.
	const auto in = noise(kBlock);
	const auto next = host.run(in);
	EXPECT_EQ(next.left[0], static_cast<float>(in[0] * 0.56811975));
	EXPECT_NE(next.right[kBlock - 1], static_cast<float>(in[kBlock - 1] * 0.56811975));
}

TEST(Processor, ReactivationStartsTheFilterCleared)
{
	ProcessorHarness host(newProcessor(), kRate, kBlock);
	const auto in = noise(kBlock, 9);
	host.runWithPan(in, 1.0);
	const auto before = host.runWithPan(in, 1.0);
	host.component()->setActive(false);
	host.component()->setActive(true);
	const auto after = host.runWithPan(in, 1.0);
	const auto f = lowPassed(in);
	EXPECT_EQ(after.left[0], static_cast<float>(f[0] * -0.6000523 * 1.125214));
	EXPECT_NE(before.left[0], after.left[0]);
}

} // namespace
} // namespace velora_test
