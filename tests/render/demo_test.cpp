// The demo: `velora-render --out demo.wav` renders the built-in test signal
// swept from left to right and reports on it.
#include "render/render_runner.h"
#include "render/sound_files.h"

#include <cmath>
#include <map>
#include <regex>
#include <sstream>

namespace velora_test {
namespace {

std::map<std::string, std::string> reportFields(const std::string& report)
{
	std::map<std::string, std::string> fields;
	std::istringstream lines(report);
	const std::regex field(R"(^([a-z -]+):\s+(.*)$)");
	for (std::string line; std::getline(lines, line);)
	{
		std::smatch m;
		if (std::regex_match(line, m, field))
			fields[m[1]] = m[2];
	}
	return fields;
}

double decibels(double level)
{
	return 20.0 * std::log10(level);
}

struct Levels
{
	double peak = 0.0;
	double rms = 0.0;
};

Levels levelsIn(const std::string& text)
{
	std::smatch m;
	const std::regex pattern(R"(^peak (-?[0-9.]+) dBFS, RMS (-?[0-9.]+) dBFS$)");
	EXPECT_TRUE(std::regex_match(text, m, pattern)) << text;
	return m.empty() ? Levels{} : Levels{std::stod(m[1]), std::stod(m[2])};
}

double peakOf(const std::vector<float>& samples)
{
	double peak = 0.0;
	for (float s : samples)
		peak = std::max(peak, std::fabs(static_cast<double>(s)));
	return peak;
}

TEST_F(RenderTest, DemoSweepsTheTestSignalFromLeftToRightAndReportsOnIt)
{
	const RenderRun run = render({"--out", "demo.wav"});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_EQ(run.err, "") << "nothing on stderr when it is not a terminal";

	auto fields = reportFields(run.out);
	EXPECT_EQ(fields["input"].rfind("built-in test signal", 0), 0u) << run.out;
	EXPECT_EQ(fields["output"], "demo.wav (WAV, 32-bit float)");
	EXPECT_EQ(fields["pan"], "sweep -90 to 90 degrees");
	EXPECT_EQ(fields["frames"], "288000 (6.000 s)");
	EXPECT_EQ(fields["sample rate"], "48000 Hz");
	EXPECT_EQ(fields["block size"], "512 frames");
	EXPECT_TRUE(std::regex_match(fields["time"], std::regex(R"([0-9.]+ s \([0-9.]+x real time\))")))
	    << fields["time"];
	EXPECT_NE(fields["plug-in"].find("Torvik Velora ("), std::string::npos) << fields["plug-in"];

	const Sound sound = readSound(path("demo.wav"));
	ASSERT_EQ(sound.channels, 2);
	EXPECT_EQ(sound.sampleRate, 48000);
	EXPECT_EQ(sound.format, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
	ASSERT_EQ(sound.left.size(), 288000u);

	// The report's levels are the file's.
	const Levels left = levelsIn(fields["left"]);
	const Levels right = levelsIn(fields["right"]);
	const std::size_t n = sound.left.size();
	EXPECT_NEAR(left.peak, decibels(peakOf(sound.left)), 0.006);
	EXPECT_NEAR(right.peak, decibels(peakOf(sound.right)), 0.006);
	EXPECT_NEAR(left.rms, decibels(rms(sound.left, 0, n)), 0.006);
	EXPECT_NEAR(right.rms, decibels(rms(sound.right, 0, n)), 0.006);
	double lr = 0.0;
	for (std::size_t i = 0; i < n; ++i)
		lr += static_cast<double>(sound.left[i]) * sound.right[i];
	const double correlation =
	    lr / (rms(sound.left, 0, n) * rms(sound.right, 0, n) * static_cast<double>(n));
	EXPECT_NEAR(std::stod(fields["correlation"]), correlation, 0.0006);

	// Heard from the left first, from the right at the end.
	const std::size_t second = 48000;
	EXPECT_GT(rms(sound.left, 0, second), 2.0 * rms(sound.right, 0, second));
	EXPECT_GT(rms(sound.right, n - second, n), 2.0 * rms(sound.left, n - second, n));
	EXPECT_LT(peakOf(sound.left), 1.0);
	EXPECT_LT(peakOf(sound.right), 1.0);
}

TEST_F(RenderTest, PluginOptionNamesTheBundle)
{
	const std::string bundle = VELORA_BUNDLE_PATH;
	const RenderRun run = render({"--out", "demo.wav", "--plugin", bundle});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_EQ(reportFields(run.out)["plug-in"], std::string("Torvik Velora (") + bundle + ")");
}

TEST_F(RenderTest, DemoIsTheSameEveryTime)
{
	ASSERT_EQ(render({"--out", "a.wav"}).status, 0);
	ASSERT_EQ(render({"--out", "b.wav", "--quiet"}).status, 0);
	EXPECT_EQ(readBytes(path("a.wav")), readBytes(path("b.wav")));
}

TEST_F(RenderTest, QuietPrintsNothing)
{
	const RenderRun run = render({"--out", "demo.wav", "-q"});
	EXPECT_EQ(run.status, 0);
	EXPECT_EQ(run.out, "");
	EXPECT_EQ(run.err, "");
}

TEST_F(RenderTest, HelpAndVersion)
{
	const RenderRun help = render({"--help"});
	EXPECT_EQ(help.status, 0);
	for (const char* option : {"--in", "--out", "--pan", "--sweep", "--automation", "--load-state",
	                           "--save-state", "--plugin", "--block", "--encoding", "--quiet"})
		EXPECT_NE(help.out.find(option), std::string::npos) << option;
	const RenderRun version = render({"-V"});
	EXPECT_EQ(version.status, 0);
	EXPECT_EQ(version.out, "velora-render 1.0.1.1\n");
	EXPECT_EQ(folderContents(), std::vector<std::string>());
}

} // namespace
} // namespace velora_test
