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
		before = files();
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
		EXPECT_EQ(files(), before);
		EXPECT_EQ(readBytes(path("out.wav")), kEarlier);
	}

	std::vector<std::string> before;
};

// A render of sine.wav to out.wav, with more arguments.
std::vector<std::string> with(std::vector<std::string> more)
{
	more.insert(more.begin(), {"--in", "sine.wav", "--out", "out.wav"});
	return more;
}

TEST_F(ErrorTest, CommandLineMistakesExitWithTwo)
{
	expectRefusal(with({"--pan", "91"}), 2, "--pan: 91 degrees is outside -90..90");
	expectRefusal(with({"--pan", "left"}), 2, "--pan: 'left' is not a number of degrees");
	expectRefusal(with({"--pan=10deg"}), 2, "'10deg' is not a number");
	expectRefusal(with({"--sweep", "-90"}), 2, "--sweep: '-90' is not FROM:TO");
	expectRefusal(with({"--sweep", "-90:100"}), 2, "100 degrees is outside -90..90");
	expectRefusal(with({"--pan", "10", "--sweep", "0:1"}), 2, "give only one of");
	expectRefusal(with({"--block", "12.5"}), 2, "--block: '12.5' is not a block size in frames");
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

TEST_F(ErrorTest, FilesAndBundlesThatCannotBeUsedExitWithOne)
{
	std::filesystem::create_directory(path("folder.wav"));
	writeSine(path("odd.wav"), 4410, 44100, 440.0, 0.5);
	writeSine(path("long.wav"), 48000, 48000, 440.0, 0.5);
	writeText(path("moves.txt"), "# pan moves\n0 -90\n1.5 hard-right\n");
	std::filesystem::create_directories(path("Fake.vst3/Contents/x86_64-linux"));
	writeText(path("Fake.vst3/Contents/x86_64-linux/Fake.so"), "not a shared library");
	before = files();
	const std::pair<std::vector<std::string>, const char*> cases[] = {
	    {{"--in", "missing.wav", "--out", "out.wav"}, "cannot read input 'missing.wav'"},
	    {{"--in", "folder.wav", "--out", "out.wav"}, "it is a directory"},
	    {{"--in", "sine.wav", "--out", "no/such/folder/out.wav"},
	     "cannot write output 'no/such/folder/out.wav'"},
	    {{"--in", "sine.wav", "--out", "folder.wav"}, "it is a directory"},
	    {with({"--save-state", "no/such/s.state"}), "cannot write state 'no/such/s.state'"},
	    // Opus takes only some sample rates: refused before anything is written.
	    {{"--in", "odd.wav", "--out", "out.opus"}, "cannot write output 'out.opus'"},
	    {with({"--automation", "moves.txt"}),
	     "moves.txt:3: 'hard-right' is not a number of degrees"},
	    {with({"--automation", "none.txt"}), "cannot read automation file 'none.txt'"},
	    {with({"--plugin", "Nothing.vst3"}), "no VST3 bundle at 'Nothing.vst3'"},
	    {with({"--plugin", "Fake.vst3"}), "plug-in 'Fake.vst3' is not a VST3 module"},
	    {with({"--load-state", "none.state"}), "cannot read state 'none.state'"},
	    // A long file is refused before it is read in full.
	    {with({"--load-state", "long.wav"}), "'long.wav' is not a saved state"},
	};
	for (const auto& [args, message] : cases)
		expectRefusal(args, 1, message);
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
	EXPECT_EQ(files(), before);
}

} // namespace
} // namespace velora_test
