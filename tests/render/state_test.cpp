// Saved states through files: --save-state writes the processor's record,
// --load-state restores processor and controller from one before rendering.
#include "render/render_runner.h"
#include "render/sound_files.h"

namespace velora_test {
namespace {

class StateTest : public RenderTest
{
protected:
	void SetUp() override
	{
		RenderTest::SetUp();
		writeSine(path("sine.wav"), 24000, 48000, 440.0, 0.5);
	}
	std::string saveAt(const std::string& degrees, const std::string& name)
	{
		const RenderRun run =
		    render({"--in", "sine.wav", "--out", "x.wav", "--pan", degrees, "--save-state", name});
		EXPECT_EQ(run.status, 0) << run.err;
		return readBytes(path(name));
	}
};

TEST_F(StateTest, SavedAndRestoredAngles)
{
	const std::string at30 = saveAt("30", "30.state");
	const std::string atLeft = saveAt("-90", "-90.state");
	const std::string record = saveAt("-45", "left.state");
	struct Case
	{
		std::vector<std::string> args;
		const char* reported;
		const std::string& saved; // the state saved back
	};
	const Case cases[] = {
	    // The test signal keeps the restored angle instead of its sweep.
	    {{}, "constant -45 degrees (restored from left.state)", record},
	    // A pan option overrides it; after a sweep, the state holds its end.
	    {{"--in", "sine.wav", "--pan", "30"}, "constant 30 degrees\n", at30},
	    {{"--in", "sine.wav", "--sweep", "0:-90"}, "sweep 0 to -90", atLeft},
	    // Restored, rendered from the first sample and saved back unchanged.
	    {{"--in", "sine.wav"}, "constant -45 degrees (restored from left.state)", record},
	};
	for (const Case& c : cases)
	{
		std::vector<std::string> args = {"--out",      "out.wav",      "--load-state",
		                                 "left.state", "--save-state", "again.state"};
		args.insert(args.end(), c.args.begin(), c.args.end());
		SCOPED_TRACE(::testing::PrintToString(args));
		const RenderRun run = render(args);
		ASSERT_EQ(run.status, 0) << run.err;
		EXPECT_NE(run.out.find(c.reported), std::string::npos) << run.out;
		EXPECT_EQ(readBytes(path("again.state")), c.saved);
	}
	EXPECT_TRUE(readBytes(path("out.wav")) == readBytes(path("x.wav"))) << "as with --pan -45";
}

TEST_F(StateTest, RecordsThatAreNotThisPluginsAreRefused)
{
	const std::string record = saveAt("20", "good.state");
	ASSERT_GT(record.size(), 60u);
	std::string newer = record;
	newer[59] = 2; // record version 2
	std::string otherClass = record;
	otherClass[50] = 'M';
	const std::pair<const char*, std::string> cases[] = {
	    {"empty", ""},
	    {"newer", newer},
	    {"other class", otherClass},
	    {"cut short", record.substr(0, 60)},
	    {"with trailing bytes", record + "trailing"},
	};
	writeText(path("out.wav"), "an earlier render");
	for (const auto& [name, bytes] : cases)
	{
		SCOPED_TRACE(name);
		writeText(path("bad.state"), bytes);
		const RenderRun run = render({"--in", "sine.wav", "--out", "out.wav", "--load-state",
		                              "bad.state", "--save-state", "new.state"});
		EXPECT_EQ(run.status, 1);
		EXPECT_EQ(run.err, "velora-render: 'bad.state' is not a saved state of Torvik Velora\n");
		EXPECT_EQ(readBytes(path("out.wav")), "an earlier render");
		EXPECT_EQ(files(), (std::vector<std::string>{"bad.state", "good.state", "out.wav",
		                                             "sine.wav", "x.wav"}));
	}
}

} // namespace
} // namespace velora_test
