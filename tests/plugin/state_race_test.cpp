// Hosts restore state on the user-interface thread while process runs on the
// audio thread: with records of -20 and +20 degrees restored in turn, every
// block of ones must be one that an angle pair before or after a restore gives,
// never a mix (and ThreadSanitizer sees no unsynchronised access).
#include "nxvelora_processor.h"
#include "persist/memory_stream.h"
#include "support/naive_pan.h"
#include "support/processor_harness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

namespace velora_test {
namespace {

constexpr double kRate = 48000.0;
constexpr int32 kBlock = 32;
constexpr int kBlocks = 4000;
constexpr double kFirst = -20.0;
constexpr double kSecond = 20.0;

// A record as the processor saves it at an angle.
std::vector<uint8_t> recordAt(double degrees)
{
	ProcessorHarness writer(NxVeloraProcessor::createInstance(nullptr), kRate, kBlock);
	writer.runWithPan(std::vector<float>(kBlock, 0.0f), normalizedPan(degrees));
	auto stream = streamOf({});
	writer.component()->getState(stream);
	return bytesOf(*stream);
}

// Within +-30 degrees the left channel of a block of ones is the left gain
// along the glide from previous to current.
std::vector<float> leftGliding(double previous, double current)
{
	Steinberg::Vst::VeloraLaw law(kRate);
	const std::vector<float> ones(kBlock, 1.0f);
	std::vector<float> left(kBlock);
	std::vector<float> right(kBlock);
	naivePan(law, previous, current, ones.data(), left.data(), right.data(), kBlock);
	return left;
}

TEST(StateRace, EveryBlockSeesTheAnglesBeforeOrAfterARestore)
{
	const std::vector<uint8_t> records[] = {recordAt(kFirst), recordAt(kSecond)};
	// From (0, 0), restores of the first, second, first, ... angle leave
	// one of these pairs, whichever blocks they fall between.
	const std::vector<std::vector<float>> pairs = {leftGliding(0.0, 0.0), leftGliding(0.0, kFirst),
	                                               leftGliding(kFirst, kSecond),
	                                               leftGliding(kSecond, kFirst)};

	ProcessorHarness audio(NxVeloraProcessor::createInstance(nullptr), kRate, kBlock);
	std::atomic<bool> restored{false};
	std::atomic<bool> done{false};
	std::thread userInterface([&] {
		for (size_t i = 0; !done.load(); ++i)
		{
			audio.component()->setState(streamOf(records[i % 2]));
			restored.store(true);
		}
	});
	while (!restored.load())
		std::this_thread::yield();

	const std::vector<float> ones(kBlock, 1.0f);
	int mixed = 0;
	int afterRestores = 0;
	for (int b = 0; b < kBlocks; ++b)
	{
		const auto left = audio.run(ones).left;
		const auto match = std::find(pairs.begin(), pairs.end(), left) - pairs.begin();
		mixed += match == static_cast<long>(pairs.size());
		afterRestores += match >= 2;
	}
	done.store(true);
	userInterface.join();
	EXPECT_EQ(mixed, 0);
	EXPECT_GT(afterRestores, 0);
}

} // namespace
} // namespace velora_test
