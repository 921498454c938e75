// Bad input: one clear message, a non-zero exit status (2 for the command
// line, 1 for files and the plug-in), and no output left behind: an earlier
// output of the same name stays as it was.
#include "render/render_runner.h"
#include "render/sound_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace velora_test {
namespace {

constexpr const char* kEarlier = "the earlier render, untouched";

class ErrorTest : public RenderTest
{
protected:
	void SetUp() override
	{
		RenderTest::SetUp();
		writeSine(path("sine.wav"), 4800, 48000, 440.0, 0.5);
		writeText(path("out.wav"), kEarlier);
		before = folderContents();
	}

	// Runs the tool and checks the status, the message (one line, containing
	// `message`) and that the folder is as it was.
	void expectRefusal(const std::vector<std::string>& args, int status, const std::string& message,
	                   long fileSizeLimit = 0)
	{
		const RenderRun run = render(args, fileSizeLimit);
		EXPECT_EQ(run.status, status) << run.err;
		EXPECT_EQ(run.err.rfind("velora-render: ", 0), 0u) << run.err;
		EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
		EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
		EXPECT_EQ(run.out, "");
		EXPECT_EQ(folderContents(), before);
		EXPECT_EQ(readBytes(path("out.wav")), kEarlier);
	}

	std::vector<std::string> before;
};

TEST_F(ErrorTest, CommandLineMistakesExitWithTwo)
{
	const std::vector<std::string> in = {"--in", "sine.wav", "--out", "out.wav"};
	const auto with = [&](std::vector<std::string> more) {
		std::vector<std::string> args = in;
		args.insert(args.end(), more.begin(), more.end());
		return args;
	};
	expectRefusal(with({"--pan", "91"}), 2, "--pan: 91 degrees is outside -90..90");
	expectRefusal(with({"--pan", "-90.01"}), 2, "outside -90..90");
	expectRefusal(with({"--pan", "left"}), 2, "--pan: 'left' is not a number of degrees");
	expectRefusal(with({"--pan", "nan"}), 2, "is not a number");
	expectRefusal(with({"--pan", ""}), 2, "is not a number");
	expectRefusal(with({"--pan=10deg"}), 2, "'10deg' is not a number");
	expectRefusal(with({"--sweep", "-90"}), 2, "--sweep: '-90' is not FROM:TO");
	expectRefusal(with({"--sweep", "-90:100"}), 2, "100 degrees is outside -90..90");
	expectRefusal(with({"--sweep", "a:b"}), 2, "'a' is not a number");
	expectRefusal(with({"--pan", "10", "--sweep", "0:1"}), 2, "give only one of");
	expectRefusal(with({"--block", "0"}), 2, "--block: '0' is not a block size in frames");
	expectRefusal(with({"--block", "100000"}), 2, "--block");
	expectRefusal(with({"--block", "12.5"}), 2, "--block");
	expectRefusal(with({"--encoding", "pcm8"}), 2, "--encoding: unknown encoding 'pcm8'");
	expectRefusal(with({"--pan"}), 2, "--pan needs a value");
	expectRefusal(with({"--frobnicate"}), 2, "unknown option '--frobnicate'");
	expectRefusal(with({"--quiet=yes"}), 2, "--quiet takes no value");
	expectRefusal(with({"extra.wav"}), 2, "unexpected argument 'extra.wav'");
	expectRefusal(with({"--in", "sine.wav"}), 2, "several inputs need --out-dir DIR");
	expectRefusal(with({"--out-dir", "o"}), 2, "give --out FILE or --out-dir DIR, not both");
	expectRefusal(with({"--jobs", "2"}), 2, "--jobs is for a batch: give --out-dir DIR");
	expectRefusal({"--out-dir", "o"}, 2, "--out-dir needs inputs");
	expectRefusal({"--in-dir", "none", "--out-dir", "o"}, 2, "--in-dir: 'none' is not a folder");
	expectRefusal({"-i", "sine.wav", "--out-dir", "o", "--recursive"}, 2,
	              "--recursive needs --in-dir");
	expectRefusal({"-i", "sine.wav", "--out-dir", "o", "--jobs", "0"}, 2,
	              "--jobs: '0' is not a number of files at once from 1 to 127");
	expectRefusal({"-i", "sine.wav", "--out-dir", "o", "--format", "mp4"}, 2,
	              "cannot tell the output format");
	expectRefusal({"-i", "sine.wav", "--out-dir", "o", "--save-state", "s"}, 2,
	              "--save-state takes the state after one render");
	expectRefusal({"-i", "sine.wav", "-i", "./sine.wav", "--out-dir", "o"}, 2,
	              "two inputs would both be rendered to 'o/sine.wav'");
	expectRefusal({"--in", "sine.wav"}, 2, "no output file");
	expectRefusal({"--out", "out.mp4"}, 2, "cannot tell the output format from '.mp4'");
	expectRefusal({"--out", "out.flac", "--encoding", "float"}, 2,
	              "--encoding float is not available for .flac");
}

TEST_F(ErrorTest, UnreadableInputs)
{
	expectRefusal({"--in", "missing.wav", "--out", "out.wav"}, 1,
	              "cannot read input 'missing.wav'");
	writeText(path("notes.txt"), "not audio at all");
	before = folderContents();
	expectRefusal({"--in", "notes.txt", "--out", "out.wav"}, 1, "cannot read input 'notes.txt'");
	std::filesystem::create_directory(path("folder.wav"));
	before = folderContents();
	expectRefusal({"--in", "folder.wav", "--out", "out.wav"}, 1, "it is a directory");
	if (getuid() != 0)
	{
		writeSine(path("locked.wav"), 480, 48000, 440.0, 0.5);
		chmod(path("locked.wav").c_str(), 0);
		before = folderContents();
		expectRefusal({"--in", "locked.wav", "--out", "out.wav"}, 1, "cannot read input");
	}
}

TEST_F(ErrorTest, OutputsThatCannotBeWritten)
{
	expectRefusal({"--in", "sine.wav", "--out", "no/such/folder/out.wav"}, 1,
	              "cannot write output 'no/such/folder/out.wav'");
	std::filesystem::create_directory(path("taken.wav"));
	before = folderContents();
	expectRefusal({"--in", "sine.wav", "--out", "taken.wav"}, 1, "it is a directory");
	expectRefusal({"--in", "sine.wav", "--out", "out.wav", "--save-state", "no/such/s.state"}, 1,
	              "cannot write state 'no/such/s.state'");
	// Opus takes only some sample rates: refused before anything is written.
	writeSine(path("odd.wav"), 4410, 44100, 440.0, 0.5);
	before = folderContents();
	expectRefusal({"--in", "odd.wav", "--out", "out.opus"}, 1, "cannot write output 'out.opus'");
}

TEST_F(ErrorTest, AFullDiskLeavesNoPartialFileAndTheEarlierOneUntouched)
{
	// One frame renders to a file smaller than the plug-in's saved state.
	writeSine(path("one.wav"), 1, 48000, 440.0, 0.5);
	writeText(path("out.state"), kEarlier);
	before = folderContents();
	struct Case
	{
		std::vector<std::string> args;
		long limit;
		const char* message;
	};
	const Case cases[] = {
	    {{"--in", "sine.wav", "--out", "out.wav"}, 4096, "cannot write output 'out.wav'"},
	    {{"--in", "sine.wav", "--out", "new.wav"}, 4096, "cannot write output 'new.wav'"},
	    {{"--in", "one.wav", "--out", "new.wav", "--save-state", "out.state"},
	     100,
	     "cannot write state 'out.state'"},
	    {{"--in", "one.wav", "--out", "new.wav", "--save-state", "new.state"},
	     100,
	     "cannot write state 'new.state'"},
	};
	for (const Case& c : cases)
	{
		expectRefusal(c.args, 1, c.message, c.limit);
		EXPECT_EQ(readBytes(path("out.state")), kEarlier);
	}
}

TEST_F(ErrorTest, MalformedAutomationNamesFileAndLine)
{
	writeText(path("moves.txt"), "# pan moves\n0 -90\n1.5 hard-right\n");
	before = folderContents();
	expectRefusal({"--in", "sine.wav", "--out", "out.wav", "--automation", "moves.txt"}, 1,
	              "moves.txt:3: 'hard-right' is not a number of degrees");
	expectRefusal({"--in", "sine.wav", "--out", "out.wav", "--automation", "none.txt"}, 1,
	              "cannot read automation file 'none.txt'");
}

TEST_F(ErrorTest, BundlesThatAreNotThere)
{
	expectRefusal({"--in", "sine.wav", "--out", "out.wav", "--plugin", "Nothing.vst3"}, 1,
	              "no VST3 bundle at 'Nothing.vst3'");
	std::filesystem::create_directories(path("Fake.vst3/Contents/x86_64-linux"));
	writeText(path("Fake.vst3/Contents/x86_64-linux/Fake.so"), "not a shared library");
	writeText(path("plain.vst3"), "a file");
	before = folderContents();
	expectRefusal({"--in", "sine.wav", "--out", "out.wav", "--plugin", "Fake.vst3"}, 1,
	              "plug-in 'Fake.vst3' is not a VST3 module");
	expectRefusal({"--in", "sine.wav", "--out", "out.wav", "--plugin", "plain.vst3"}, 1,
	              "plug-in 'plain.vst3' is not a VST3 module");
}

TEST_F(ErrorTest, StateFilesThatCannotBeRead)
{
	expectRefusal({"--in", "sine.wav", "--out", "out.wav", "--load-state", "none.state"}, 1,
	              "cannot read state 'none.state'");
	// A long file is refused before it is read in full.
	writeSine(path("long.wav"), 48000, 48000, 440.0, 0.5);
	before = folderContents();
	expectRefusal({"--in", "sine.wav", "--out", "out.wav", "--load-state", "long.wav"}, 1,
	              "'long.wav' is not a saved state");
}

TEST_F(ErrorTest, ReadOnlyOutputIsNotReplaced)
{
	if (getuid() == 0)
		GTEST_SKIP() << "root writes anywhere";
	chmod(path("out.wav").c_str(), 0444);
	expectRefusal({"--in", "sine.wav", "--out", "out.wav"}, 1, "cannot write output 'out.wav'");
}

TEST_F(ErrorTest, SuccessReplacesTheEarlierOutputKeepingItsMode)
{
	chmod(path("out.wav").c_str(), 0640);
	const RenderRun run = render({"--in", "sine.wav", "--out", "out.wav", "-q"});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_EQ(readSound(path("out.wav")).left.size(), 4800u);
	struct stat info = {};
	ASSERT_EQ(stat(path("out.wav").c_str(), &info), 0);
	EXPECT_EQ(info.st_mode & 0777, 0640u);
	EXPECT_EQ(folderContents(), before);
}

} // namespace
} // namespace velora_test
