// A sine through the tool with every way of moving the pan, sample by sample
// against the pan law applied here per block: the angle at the block's end,
// glided to from the previous one.
#include "render/render_runner.h"
#include "render/sound_files.h"

#include "support/naive_pan.h"

#include <cmath>
#include <functional>

namespace velora_test {
namespace {

constexpr int kRate = 48000;
constexpr std::int64_t kFrames = kRate; // one second

// The angle as the processor gets it: degrees to the normalised value the
// host sends and back.
double sentDegrees(double degrees)
{
	return (degrees + 90.0) / 180.0 * 180.0 - 90.0;
}

// The largest difference of the rendered channels from the law's, per block:
// the start angle holds from the first sample; then each block glides from
// the previous angle to the one at its end.
double largestDifference(const std::vector<float>& in, const std::vector<float>& left,
                         const std::vector<float>& right, int block,
                         const std::function<double(double)>& degreesAt)
{
	if (left.size() != in.size() || right.size() != in.size())
		return INFINITY;
	Steinberg::Vst::VeloraLaw law(kRate);
	std::vector<float> l(static_cast<std::size_t>(block)), r(l.size());
	double worst = 0.0;
	double current = sentDegrees(degreesAt(0.0));
	for (std::size_t start = 0; start < in.size(); start += l.size())
	{
		const int n = static_cast<int>(std::min(l.size(), in.size() - start));
		const double previous = current;
		current = sentDegrees(degreesAt(static_cast<double>(start + n) / kRate));
		naivePan(law, previous, current, in.data() + start, l.data(), r.data(), n);
		for (int i = 0; i < n; ++i)
			worst = std::max({worst, std::fabs(static_cast<double>(l[i]) - left[start + i]),
			                  std::fabs(static_cast<double>(r[i]) - right[start + i])});
	}
	return worst;
}

TEST_F(RenderTest, EveryPanMoveMatchesTheLawSampleBySample)
{
	writeText(path("moves.txt"), "# hold, move, hold\n0 -30\n0.5 -30\n0.75 30\n");
	writeText(path("step.txt"), "0 -60\n0.25 -60\n0.25 60\n");
	writeText(path("hold.txt"), "0.5 45\n");
	struct Case
	{
		std::vector<std::string> options;
		int block;
		std::function<double(double)> degreesAt;
		const char* reported;
	};
	const auto constant = [](double d) { return [d](double) { return d; }; };
	const auto sweep = [](double t) { return -80.0 + 155.0 * t; };
	const Case cases[] = {
	    {{}, 512, constant(0.0), "constant 0 degrees"},
	    {{"--pan", "-30"}, 512, constant(-30.0), "constant -30 degrees"},
	    {{"--pan", "-72.5"}, 512, constant(-72.5), "constant -72.5 degrees"},
	    {{"--sweep", "-80:75"}, 512, sweep, "sweep -80 to 75 degrees"},
	    {{"--sweep", "-80:75", "--block", "1000"}, 1000, sweep, ""},
	    {{"--automation", "moves.txt", "--block", "256"},
	     256,
	     [](double t) { return t <= 0.5 ? -30.0 : (t >= 0.75 ? 30.0 : -30.0 + 240.0 * (t - 0.5)); },
	     "automation moves.txt (3 points)"},
	    {{"--automation", "step.txt"}, 512, [](double t) { return t < 0.25 ? -60.0 : 60.0; }, ""},
	    {{"--automation", "hold.txt"}, 512, constant(45.0), "automation hold.txt (1 point)"},
	};
	writeSine(path("sine.wav"), kFrames, kRate, 700.0, 0.5);
	const std::vector<float> in = sine(kFrames, kRate, 700.0, 0.5);
	for (const Case& c : cases)
	{
		std::vector<std::string> args = {"--in", "sine.wav", "--out", "out.wav"};
		args.insert(args.end(), c.options.begin(), c.options.end());
		SCOPED_TRACE(::testing::PrintToString(args));
		const RenderRun run = render(args);
		ASSERT_EQ(run.status, 0) << run.err;
		EXPECT_NE(run.out.find(std::string("pan:          ") + c.reported), std::string::npos)
		    << run.out;
		const Sound out = readSound(path("out.wav"));
		EXPECT_LT(largestDifference(in, out.left, out.right, c.block, c.degreesAt), 1e-6);
	}
}

} // namespace
} // namespace velora_test
