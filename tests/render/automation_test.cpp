// Pan automation: the file format (points, comments, faults with file and
// line) and its effect on the rendered sound.
#include "automation_file.h"
#include "failure.h"
#include "pan_curve.h"
#include "pan_schedule.h"

#include "render/expected_render.h"
#include "render/render_runner.h"
#include "render/sound_files.h"

#include <gtest/gtest.h>

#include <sstream>

namespace velora_test {
namespace {

using velora_render::Failure;
using velora_render::PanCurve;
using velora_render::PanSchedule;
using velora_render::parseAutomation;

PanCurve parse(const std::string& text)
{
	std::istringstream in(text);
	return parseAutomation(in, "moves.txt");
}

// The failure's message, or "" when the text parses.
std::string faultIn(const std::string& text)
{
	try
	{
		parse(text);
	}
	catch (const Failure& failure)
	{
		EXPECT_EQ(failure.status(), 1);
		return failure.what();
	}
	return "";
}

TEST(Automation, PointsCommentsAndBlankLines)
{
	const PanCurve curve = parse("# a move to the right\n"
	                             "\n"
	                             "0    -90   # start hard left\n"
	                             "\t1.5\t0\r\n"
	                             "  2 90\n"
	                             "2 -45\n");
	EXPECT_EQ(curve.size(), 4u);
	EXPECT_EQ(curve.at(-1.0), -90.0);
	EXPECT_EQ(curve.at(0.0), -90.0);
	EXPECT_DOUBLE_EQ(curve.at(0.75), -45.0);
	EXPECT_DOUBLE_EQ(curve.at(1.75), 45.0);
	// Two points at one time make a step; after the last point it holds.
	EXPECT_EQ(curve.at(2.0), -45.0);
	EXPECT_EQ(curve.at(100.0), -45.0);
}

TEST(Automation, OnePointHoldsEverywhere)
{
	const PanCurve curve = parse("3 12.5");
	EXPECT_EQ(curve.at(0.0), 12.5);
	EXPECT_EQ(curve.at(5.0), 12.5);
}

TEST(Automation, FaultsNameTheFileAndLine)
{
	EXPECT_EQ(faultIn("0 0\n1 abc\n"), "moves.txt:2: 'abc' is not a number of degrees");
	EXPECT_EQ(faultIn("# c\n0 0\n\n1 91\n"), "moves.txt:4: 91 degrees is outside -90..90");
	EXPECT_EQ(faultIn("0 -90.5"), "moves.txt:1: -90.5 degrees is outside -90..90");
	EXPECT_EQ(faultIn("0 0\n1\n"), "moves.txt:2: expected 'seconds degrees', found 1 field");
	EXPECT_EQ(faultIn("0 0 0\n"), "moves.txt:1: expected 'seconds degrees', found 3 fields");
	EXPECT_EQ(faultIn("2 0\n1 0\n"), "moves.txt:2: time 1 comes before the previous point's 2");
	EXPECT_EQ(faultIn("-1 0\n"), "moves.txt:1: '-1' is not a time in seconds (0 or more)");
	EXPECT_EQ(faultIn("1s 0\n"), "moves.txt:1: '1s' is not a time in seconds (0 or more)");
	EXPECT_EQ(faultIn("nan 0\n"), "moves.txt:1: 'nan' is not a time in seconds (0 or more)");
	EXPECT_EQ(faultIn("0 inf\n"), "moves.txt:1: 'inf' is not a number of degrees");
	EXPECT_EQ(faultIn("0,5 10\n"), "moves.txt:1: '0,5' is not a time in seconds (0 or more)");
	EXPECT_EQ(faultIn("# nothing\n\n"),
	          "moves.txt: no automation points (lines of 'seconds degrees')");
	EXPECT_EQ(faultIn(""), "moves.txt: no automation points (lines of 'seconds degrees')");
}

// The host's side of the glide: a changed value is sent, then sent once more
// when it stops changing, then nothing until it changes again.
TEST(PanScheduleTest, SendsChangesAndSettlesWithOneRepeat)
{
	PanSchedule schedule;
	EXPECT_EQ(schedule.next(0.5), 0.5);
	EXPECT_EQ(schedule.next(0.5), 0.5);
	EXPECT_EQ(schedule.next(0.5), std::nullopt);
	EXPECT_EQ(schedule.next(0.6), 0.6);
	EXPECT_EQ(schedule.next(0.7), 0.7);
	EXPECT_EQ(schedule.next(0.7), 0.7);
	EXPECT_EQ(schedule.next(0.7), std::nullopt);
	EXPECT_EQ(schedule.next(0.7), std::nullopt);
	EXPECT_EQ(schedule.next(0.2), 0.2);
	EXPECT_EQ(schedule.next(0.2), 0.2);
	EXPECT_EQ(schedule.next(0.2), std::nullopt);
}

constexpr int kRate = 48000;
constexpr double kAmplitude = 0.5;

TEST_F(RenderTest, AutomationMovesThePanAndHoldsAfterTheLastPoint)
{
	// Hard at -30 (left only) for half a second, a move to +30 (right only)
	// over the next half, then held there.
	writeText(path("moves.txt"), "0 -30\n0.5 -30   # hold\n1.0 30\n");
	const std::int64_t frames = 2 * kRate;
	writeSine(path("sine.wav"), frames, kRate, 440.0, kAmplitude);
	const RenderRun run = render(
	    {"--in", "sine.wav", "--out", "out.wav", "--automation", "moves.txt", "--block", "256"});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_NE(run.out.find("automation moves.txt (3 points)\n"), std::string::npos) << run.out;

	const Sound out = readSound(path("out.wav"));
	const std::vector<float> in = sine(frames, kRate, 440.0, kAmplitude);
	ASSERT_EQ(out.left.size(), in.size());
	// Up to the block that reaches past 0.5 s, where the move begins.
	for (std::size_t i = 0; i < static_cast<std::size_t>(kRate / 2 / 256 * 256); ++i)
	{
		ASSERT_NEAR(out.left[i], in[i], 1e-6) << i;
		ASSERT_NEAR(out.right[i], 0.0f, 1e-6) << i;
	}
	// From the first block that starts after 1 s the angle sits at +30.
	for (std::size_t i = kRate + 256; i < in.size(); ++i)
	{
		ASSERT_NEAR(out.left[i], 0.0f, 1e-6) << i;
		ASSERT_NEAR(out.right[i], in[i], 1e-6) << i;
	}
	const StereoSamples expected = expectedRender(in, kRate, 256, [](double t) {
		return t <= 0.5 ? -30.0 : (t >= 1.0 ? 30.0 : -30.0 + 60.0 * (t - 0.5) / 0.5);
	});
	EXPECT_LT(largestDifference(out.left, expected.left), 1e-6);
	EXPECT_LT(largestDifference(out.right, expected.right), 1e-6);
}

TEST_F(RenderTest, AutomationStepsAtOnePointInTime)
{
	writeText(path("step.txt"), "0 -60\n0.25 -60\n0.25 60\n");
	writeSine(path("sine.wav"), kRate / 2, kRate, 440.0, kAmplitude);
	ASSERT_EQ(
	    render({"--in", "sine.wav", "--out", "out.wav", "-q", "--automation", "step.txt"}).status,
	    0);
	const Sound out = readSound(path("out.wav"));
	const std::vector<float> in = sine(kRate / 2, kRate, 440.0, kAmplitude);
	const StereoSamples expected =
	    expectedRender(in, kRate, 512, [](double t) { return t < 0.25 ? -60.0 : 60.0; });
	EXPECT_LT(largestDifference(out.left, expected.left), 1e-6);
	EXPECT_LT(largestDifference(out.right, expected.right), 1e-6);
}

} // namespace
} // namespace velora_test
