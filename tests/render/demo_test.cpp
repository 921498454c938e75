// The demo: `velora-render --out demo.wav` renders the built-in test signal
// swept from left to right and reports on it; the levels it reports are the
// file's, measured here.
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
		if (std::smatch m; std::regex_match(line, m, field))
			fields[m[1]] = m[2];
	return fields;
}

std::string levelsOf(const std::vector<float>& samples)
{
	double peak = 0.0;
	for (float s : samples)
		peak = std::max(peak, std::fabs(static_cast<double>(s)));
	char text[64];
	std::snprintf(text, sizeof text, "peak %.2f dBFS, RMS %.2f dBFS", 20.0 * std::log10(peak),
	              20.0 * std::log10(rms(samples, 0, samples.size())));
	return text;
}

TEST_F(RenderTest, DemoSweepsTheTestSignalFromLeftToRightAndReportsOnIt)
{
	const std::string bundle = VELORA_BUNDLE_PATH;
	const RenderRun run = render({"--out", "demo.wav", "--plugin", bundle});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_EQ(run.err, "") << "nothing on stderr when it is not a terminal";
	auto fields = reportFields(run.out);
	EXPECT_EQ(fields["input"].rfind("built-in test signal", 0), 0u) << run.out;
	EXPECT_EQ(fields["output"], "demo.wav (WAV, 32-bit float)");
	EXPECT_EQ(fields["plug-in"], "Torvik Velora (" + bundle + ")");
	EXPECT_EQ(fields["pan"], "sweep -90 to 90 degrees");
	EXPECT_EQ(fields["frames"], "288000 (6.000 s)");
	EXPECT_EQ(fields["sample rate"], "48000 Hz");
	EXPECT_EQ(fields["block size"], "512 frames");
	EXPECT_TRUE(std::regex_match(fields["time"], std::regex(R"([0-9.]+ s \([0-9.]+x real time\))")))
	    << fields["time"];

	const Sound sound = readSound(path("demo.wav"));
	ASSERT_EQ(sound.left.size(), 288000u);
	EXPECT_EQ(fields["left"], levelsOf(sound.left));
	EXPECT_EQ(fields["right"], levelsOf(sound.right));
	// Heard from the left first, from the right at the end.
	const std::size_t n = sound.left.size();
	const std::size_t second = 48000;
	EXPECT_GT(rms(sound.left, 0, second), 2.0 * rms(sound.right, 0, second));
	EXPECT_GT(rms(sound.right, n - second, n), 2.0 * rms(sound.left, n - second, n));

	// The same bytes every time (no time of writing in the file); quiet
	// prints nothing.
	const RenderRun quiet = render({"--out", "again.wav", "-q"});
	EXPECT_EQ(quiet.out + quiet.err, "");
	EXPECT_TRUE(readBytes(path("demo.wav")) == readBytes(path("again.wav")));
}

TEST_F(RenderTest, HelpAndVersion)
{
	const RenderRun help = render({"--help"});
	EXPECT_EQ(help.status, 0);
	for (const char* option : {"--in", "--out", "--pan", "--sweep", "--automation", "--load-state",
	                           "--save-state", "--plugin", "--block", "--encoding", "--quiet",
	                           "--out-dir", "--in-dir", "--jobs", "--force", "--report"})
		EXPECT_NE(help.out.find(option), std::string::npos) << option;
	const RenderRun version = render({"-V"});
	EXPECT_EQ(version.out, "velora-render 1.0.1.1\n");
	EXPECT_EQ(files(), std::vector<std::string>());
}

} // namespace
} // namespace velora_test
