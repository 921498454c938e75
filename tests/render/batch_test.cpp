// Batches: many inputs rendered into a mirrored tree, each output exactly what
// a render of that file alone gives; up-to-date outputs skipped; a failing
// file reported without stopping the others; an interrupted batch resumed.
#include "render/render_runner.h"
#include "render/sound_files.h"

#include <signal.h>

#include <filesystem>

namespace velora_test {
namespace {

namespace fs = std::filesystem;

constexpr int kRate = 48000;

class BatchTest : public RenderTest
{
protected:
	void expectRun(const std::vector<std::string>& args, int status, const std::string& summary)
	{
		const RenderRun run = render(args);
		EXPECT_EQ(run.status, status) << run.err;
		EXPECT_NE(run.out.find(summary), std::string::npos) << run.out;
	}
};

TEST_F(BatchTest, AFolderTreeIsMirroredAndEachOutputIsThatOfItsOwnRender)
{
	fs::create_directories(path("lib/a/b"));
	writeSine(path("lib/one.wav"), kRate / 2, kRate, 440.0, 0.5);
	writeSine(path("lib/a/two.flac"), kRate / 3, kRate, 660.0, 0.5, 2,
	          SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
	writeSine(path("lib/a/b/three.aiff"), kRate, 44100, 220.0, 0.5, 1,
	          SF_FORMAT_AIFF | SF_FORMAT_PCM_24);
	writeText(path("lib/a/notes.txt"), "not audio, not taken");
	writeSine(path("extra.wav"), 1000, kRate, 440.0, 0.5);
	const auto pan = [](std::vector<std::string> args) {
		args.insert(args.end(), {"--sweep", "-90:60", "--block", "300"});
		return args;
	};
	expectRun(pan({"--in-dir", "lib", "--recursive", "-i", "extra.wav", "--out-dir", "out",
	               "--format", "wav", "--jobs", "2"}),
	          0, "files:    4: 4 rendered, 0 up to date, 0 failed");
	for (const auto& [input, output] : {std::pair{"lib/a/b/three.aiff", "a/b/three.wav"},
	                                    {"lib/a/two.flac", "a/two.wav"},
	                                    {"extra.wav", "extra.wav"},
	                                    {"lib/one.wav", "one.wav"}})
	{
		ASSERT_EQ(render(pan({"-q", "--in", input, "--out", "alone.wav"})).status, 0) << input;
		EXPECT_TRUE(readBytes(path(std::string("out/") + output)) == readBytes(path("alone.wav")))
		    << output;
	}
	// Without --recursive only the folder's own files; each input's format
	// without --format.
	expectRun(pan({"--in-dir", "lib/a", "--out-dir", "flat", "--jobs", "1"}), 0, "1 rendered");
	EXPECT_EQ(files("flat"), (std::vector<std::string>{".two.flac.render", "two.flac"}));
}

TEST_F(BatchTest, UpToDateOutputsAreSkippedUnlessForcedOrChanged)
{
	fs::create_directory(path("in"));
	for (const char* name : {"in/a.wav", "in/b.wav"})
		writeSine(path(name), 4800, kRate, 440.0, 0.5);
	const std::vector<std::string> args = {"--in-dir", "in", "--out-dir", "out", "--pan", "30"};
	expectRun(args, 0, "2 rendered, 0 up to date");
	expectRun(args, 0, "0 rendered, 2 up to date");
	expectRun({"--in-dir", "in", "--out-dir", "out", "--pan", "30", "--force"}, 0,
	          "2 rendered, 0 up to date");
	writeSine(path("in/b.wav"), 2400, kRate, 440.0, 0.5);
	expectRun(args, 0, "1 rendered, 1 up to date");
	EXPECT_EQ(readSound(path("out/b.wav")).left.size(), 2400u);
	expectRun({"--in-dir", "in", "--out-dir", "out", "--pan", "31"}, 0, "2 rendered, 0 up to date");
}

TEST_F(BatchTest, FailingFilesAreReportedAndTheOthersRendered)
{
	fs::create_directory(path("in"));
	writeSine(path("in/good.wav"), 4800, kRate, 440.0, 0.5);
	writeSine(path("in/long.wav"), 10 * kRate, kRate, 440.0, 0.5);
	writeText(path("in/junk.wav"), "not audio");
	fs::create_directory(path("out"));
	writeText(path("out/long.wav"), "the earlier render, untouched");
	// A full disk for the long file only: its output passes the size limit.
	const RenderRun run =
	    render({"--in-dir", "in", "--out-dir", "out", "--report", "report.json", "--jobs", "2"},
	           256 * 1024);
	EXPECT_EQ(run.status, 1) << run.err;
	EXPECT_NE(run.out.find("1 rendered, 0 up to date, 2 failed"), std::string::npos) << run.out;
	EXPECT_NE(run.out.find("failed:   in/junk.wav: cannot read input 'in/junk.wav'"),
	          std::string::npos);
	EXPECT_NE(run.out.find("failed:   in/long.wav: cannot write output 'out/long.wav'"),
	          std::string::npos);
	EXPECT_EQ(files("out"), (std::vector<std::string>{".good.wav.render", "good.wav", "long.wav"}));
	EXPECT_EQ(readBytes(path("out/long.wav")), "the earlier render, untouched");
	const std::string report = readBytes(path("report.json"));
	EXPECT_NE(report.find("{\"input\": \"in/good.wav\", \"output\": \"out/good.wav\", "
	                      "\"status\": \"rendered\", \"frames\": 4800, \"rate\": 48000, "
	                      "\"peak\": ["),
	          std::string::npos)
	    << report;
	EXPECT_NE(report.find("\"status\": \"failed\", \"reason\": \"cannot read input"),
	          std::string::npos);
}

TEST_F(BatchTest, AnInterruptedBatchResumesToTheSameOutputs)
{
	fs::create_directory(path("in"));
	writeSine(path("in/0.wav"), 480, kRate, 440.0, 0.5);
	for (const char* name : {"in/1.wav", "in/2.wav", "in/3.wav"})
		writeSine(path(name), 20 * kRate, kRate, 330.0, 0.5);
	// Small blocks make each long file take a while.
	const auto args = [](const std::string& out) {
		return std::vector<std::string>{"--in-dir", "in",      "--out-dir", out,       "--jobs",
		                                "1",        "--block", "4",         "--sweep", "-90:90"};
	};
	ASSERT_EQ(render(args("whole")).status, 0);

	const auto tool = start(args("out"));
	ASSERT_EQ(tool->lineWith("done ").rfind("done ", 0), 0u);
	tool->signal(SIGTERM);
	const RenderRun stopped = finish(*tool);
	EXPECT_EQ(stopped.status, 128 + SIGTERM);
	EXPECT_NE(stopped.err.find("interrupted (Terminated): 1 of 4 files done; run the same "
	                           "command again to render the rest"),
	          std::string::npos)
	    << stopped.err;
	EXPECT_EQ(files("out"), (std::vector<std::string>{".0.wav.render", "0.wav"}));

	const RenderRun resumed = render(args("out"));
	ASSERT_EQ(resumed.status, 0) << resumed.err;
	EXPECT_NE(resumed.out.find("3 rendered, 1 up to date"), std::string::npos) << resumed.out;
	EXPECT_EQ(files("out"), files("whole"));
	for (const char* name : {"0.wav", "1.wav", "2.wav", "3.wav"})
		EXPECT_TRUE(readBytes(path(std::string("out/") + name)) ==
		            readBytes(path(std::string("whole/") + name)))
		    << name;
}

} // namespace
} // namespace velora_test
