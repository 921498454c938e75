// A sine through the tool at fixed angles, a sweep and other block sizes,
// against the pan law: the near channel at the law's gain, and beyond +-30
// degrees the far channel low-passed at 1 kHz and scaled by the law's factor.
#include "render/expected_render.h"
#include "render/render_runner.h"
#include "render/sound_files.h"

#include "velora_law.h"

#include <algorithm>
#include <cmath>

namespace velora_test {
namespace {

using Steinberg::Vst::VeloraLaw;

constexpr int kRate = 48000;
constexpr std::int64_t kFrames = kRate; // one second
constexpr double kAmplitude = 0.5;

double lawAt(double degrees)
{
	double gain = 0.0;
	VeloraLaw::spline_eval(1, &degrees, &gain);
	return gain;
}

// The one-pole bilinear low-pass's gain at `hz`, with its corner at 1 kHz.
double lowPassGain(double hz)
{
	const double ratio = std::tan(M_PI * hz / kRate) / std::tan(M_PI * 1000.0 / kRate);
	return 1.0 / std::sqrt(1.0 + ratio * ratio);
}

class PanTest : public RenderTest
{
protected:
	Sound renderSine(double hz, const std::vector<std::string>& options)
	{
		writeSine(path("sine.wav"), kFrames, kRate, hz, kAmplitude);
		std::vector<std::string> args = {"--in", "sine.wav", "--out", "out.wav"};
		args.insert(args.end(), options.begin(), options.end());
		const RenderRun run = render(args);
		EXPECT_EQ(run.status, 0) << run.err;
		return readSound(path("out.wav"));
	}
	// The gain of a channel over the second half of the render, where the
	// filter has long settled.
	static double gainOf(const std::vector<float>& channel)
	{
		return rms(channel, channel.size() / 2, channel.size()) / (kAmplitude / std::sqrt(2.0));
	}
};

TEST_F(PanTest, KnotAnglesGiveTheLawsGains)
{
	struct Case
	{
		const char* degrees;
		double left;
		double right;
	};
	// Values of the law's table at its knots; within +-30 degrees both
	// channels carry the signal itself.
	for (const Case& c :
	     {Case{"0", 0.56811975, 0.56811975}, Case{"-30", 1.0, 0.0}, Case{"30", 0.0, 1.0}})
	{
		SCOPED_TRACE(c.degrees);
		const Sound out = renderSine(440.0, {"--pan", c.degrees});
		const std::vector<float> in = sine(kFrames, kRate, 440.0, kAmplitude);
		ASSERT_EQ(out.left.size(), in.size());
		for (std::size_t i = 0; i < in.size(); ++i)
		{
			ASSERT_NEAR(out.left[i], in[i] * c.left, 1e-6) << i;
			ASSERT_NEAR(out.right[i], in[i] * c.right, 1e-6) << i;
		}
	}
}

TEST_F(PanTest, BeyondThirtyDegreesTheFarChannelIsLowPassedAndInverted)
{
	constexpr double kFarFactor = 1.125214;
	// At 1 kHz, the corner, the filter passes 1/sqrt(2); at 4 kHz much less.
	for (double hz : {1000.0, 4000.0})
	{
		SCOPED_TRACE(hz);
		const Sound full = renderSine(hz, {"--pan", "90"});
		EXPECT_NEAR(gainOf(full.right), 1.25527334, 1e-3);
		EXPECT_NEAR(gainOf(full.left), 0.6000523 * kFarFactor * lowPassGain(hz), 2e-3);

		const Sound hard = renderSine(hz, {"--pan", "-90"});
		EXPECT_NEAR(gainOf(hard.left), 1.25527334, 1e-3);
		EXPECT_NEAR(gainOf(hard.right), 0.6000523 * kFarFactor * lowPassGain(hz), 2e-3);
	}
	// The far channel is phase-inverted: below the corner it is nearly the
	// negated, scaled signal.
	const Sound low = renderSine(50.0, {"--pan", "90"});
	double product = 0.0;
	for (std::size_t i = kFrames / 2; i < static_cast<std::size_t>(kFrames); ++i)
		product += static_cast<double>(low.left[i]) * low.right[i];
	EXPECT_LT(product, 0.0);
}

TEST_F(PanTest, EveryAngleMatchesTheLawSampleBySample)
{
	for (const char* degrees : {"-90", "-72.5", "-45", "-12.25", "17", "45", "60", "88.8"})
	{
		SCOPED_TRACE(degrees);
		const Sound out = renderSine(700.0, {"--pan", degrees});
		const std::vector<float> in = sine(kFrames, kRate, 700.0, kAmplitude);
		const double angle = std::stod(degrees);
		const StereoSamples expected =
		    expectedRender(in, kRate, 512, [angle](double) { return angle; });
		EXPECT_LT(largestDifference(out.left, expected.left), 1e-6);
		EXPECT_LT(largestDifference(out.right, expected.right), 1e-6);
		// The near channel is the law's gain at the angle, the far one at its
		// negative (times the filter's and the factor's share beyond 30).
		if (std::fabs(angle) <= 30.0)
		{
			EXPECT_NEAR(gainOf(out.left), std::fabs(lawAt(angle)), 1e-4);
			EXPECT_NEAR(gainOf(out.right), std::fabs(lawAt(-angle)), 1e-4);
		}
		else if (angle < 0)
			EXPECT_NEAR(gainOf(out.left), std::fabs(lawAt(angle)), 1e-4);
		else
			EXPECT_NEAR(gainOf(out.right), std::fabs(lawAt(-angle)), 1e-4);
	}
}

TEST_F(PanTest, SweepGlidesAcrossEachBlock)
{
	for (int block : {512, 64, 1000})
	{
		SCOPED_TRACE(block);
		const Sound out =
		    renderSine(300.0, {"--sweep", "-80:75", "--block", std::to_string(block)});
		const std::vector<float> in = sine(kFrames, kRate, 300.0, kAmplitude);
		const double seconds = static_cast<double>(kFrames) / kRate;
		const StereoSamples expected = expectedRender(
		    in, kRate, block, [seconds](double t) { return -80.0 + 155.0 * t / seconds; });
		EXPECT_LT(largestDifference(out.left, expected.left), 1e-6);
		EXPECT_LT(largestDifference(out.right, expected.right), 1e-6);
	}
}

TEST_F(PanTest, AFileWithoutPanOptionStaysAtTheCentre)
{
	const Sound out = renderSine(440.0, {});
	const std::vector<float> in = sine(kFrames, kRate, 440.0, kAmplitude);
	for (std::size_t i = 0; i < in.size(); i += 97)
	{
		ASSERT_NEAR(out.left[i], in[i] * 0.56811975, 1e-6) << i;
		ASSERT_NEAR(out.right[i], in[i] * 0.56811975, 1e-6) << i;
	}
}

TEST_F(PanTest, StereoInputIsMixedToMonoWithANotice)
{
	// Channel 1 carries the sine at half the level: the mix is 0.75 of it.
	writeSine(path("stereo.wav"), kFrames, kRate, 440.0, kAmplitude, 2,
	          SF_FORMAT_WAV | SF_FORMAT_PCM_24, 0.5);
	const RenderRun run = render({"--in", "stereo.wav", "--out", "out.wav", "--pan", "-30"});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_NE(run.err.find("2 channels; mixing them to mono"), std::string::npos) << run.err;
	EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
	const Sound out = readSound(path("out.wav"));
	const std::vector<float> in = sine(kFrames, kRate, 440.0, kAmplitude * 0.75);
	for (std::size_t i = 0; i < in.size(); i += 31)
		ASSERT_NEAR(out.left[i], in[i], 1e-5) << i;
}

TEST_F(PanTest, TheOutputsExtensionPicksTheFormat)
{
	writeSine(path("sine.flac"), 44100, 44100, 440.0, kAmplitude, 1,
	          SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
	struct Case
	{
		const char* name;
		std::vector<std::string> options;
		int format;
	};
	for (const Case& c :
	     {Case{"out.flac", {}, SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
	      Case{"out.aiff", {}, SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
	      Case{"out.WAV", {"--encoding", "pcm16"}, SF_FORMAT_WAV | SF_FORMAT_PCM_16},
	      Case{"out", {}, SF_FORMAT_WAV | SF_FORMAT_FLOAT}})
	{
		SCOPED_TRACE(c.name);
		std::vector<std::string> args = {"--in", "sine.flac", "--out", c.name, "-q"};
		args.insert(args.end(), c.options.begin(), c.options.end());
		ASSERT_EQ(render(args).status, 0);
		const Sound out = readSound(path(c.name));
		EXPECT_EQ(out.format, c.format);
		EXPECT_EQ(out.sampleRate, 44100);
		EXPECT_EQ(out.left.size(), 44100u);
		EXPECT_NEAR(gainOf(out.left), 0.56811975, 1e-3);
	}
}

} // namespace
} // namespace velora_test
