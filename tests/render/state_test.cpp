// Saved states through files: --save-state writes the processor's record,
// --load-state restores processor and controller from one before rendering.
#include "render/render_runner.h"
#include "render/sound_files.h"

#include "velora_law.h"

#include <cstring>

namespace velora_test {
namespace {

constexpr int kRate = 48000;
constexpr double kAmplitude = 0.5;
constexpr std::size_t kRecordBytes = 110;
constexpr std::size_t kValueOffset = 102;

double storedValue(const std::string& record)
{
	double value = 0.0;
	std::memcpy(&value, record.data() + kValueOffset, sizeof value);
	return value;
}

double lawAt(double degrees)
{
	double gain = 0.0;
	Steinberg::Vst::VeloraLaw::spline_eval(1, &degrees, &gain);
	return gain;
}

class StateTest : public RenderTest
{
protected:
	void SetUp() override
	{
		RenderTest::SetUp();
		writeSine(path("sine.wav"), kRate / 2, kRate, 440.0, kAmplitude);
	}
	std::string saveAt(const std::string& degrees, const std::string& name)
	{
		const RenderRun run =
		    render({"--in", "sine.wav", "--out", "x.wav", "--pan", degrees, "--save-state", name});
		EXPECT_EQ(run.status, 0) << run.err;
		return readBytes(path(name));
	}
};

TEST_F(StateTest, SavedStateIsThePluginsRecordOfTheLastAngle)
{
	const std::string record = saveAt("45", "pan45.state");
	ASSERT_EQ(record.size(), kRecordBytes);
	EXPECT_EQ(record.substr(4, 26), std::string("VstStructuredFileRelative\0", 26));
	EXPECT_EQ(record.substr(50, 9), std::string("NxVelora\0", 9));
	EXPECT_EQ(storedValue(record), 0.75);

	// After a sweep, the record holds where it ended.
	const RenderRun run = render(
	    {"--in", "sine.wav", "--out", "x.wav", "--sweep", "0:-90", "--save-state", "end.state"});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_EQ(storedValue(readBytes(path("end.state"))), 0.0);
}

TEST_F(StateTest, RestoredAngleIsRenderedAndSavedBackUnchanged)
{
	const std::string record = saveAt("-45", "left.state");
	ASSERT_EQ(record.size(), kRecordBytes);

	const RenderRun run = render({"--in", "sine.wav", "--out", "out.wav", "--load-state",
	                              "left.state", "--save-state", "again.state"});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_NE(run.out.find("constant -45 degrees (restored from left.state)"), std::string::npos)
	    << run.out;
	EXPECT_EQ(readBytes(path("again.state")), record);

	// From the first sample on: the near channel at the law's -45 gain.
	const Sound out = readSound(path("out.wav"));
	const std::vector<float> in = sine(kRate / 2, kRate, 440.0, kAmplitude);
	ASSERT_EQ(out.left.size(), in.size());
	for (std::size_t i = 0; i < in.size(); ++i)
		ASSERT_NEAR(out.left[i], in[i] * lawAt(-45.0), 1e-6) << i;
}

TEST_F(StateTest, APanOptionOverridesTheRestoredAngle)
{
	saveAt("-45", "left.state");
	const RenderRun run = render({"--in", "sine.wav", "--out", "out.wav", "--load-state",
	                              "left.state", "--pan", "30", "--save-state", "right.state"});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_EQ(storedValue(readBytes(path("right.state"))), 120.0 / 180.0);
	const Sound out = readSound(path("out.wav"));
	EXPECT_LT(rms(out.left, 0, out.left.size()), 1e-6);
}

TEST_F(StateTest, TheTestSignalKeepsTheRestoredAngle)
{
	saveAt("60", "right.state");
	const RenderRun run = render({"--out", "demo.wav", "--load-state", "right.state"});
	ASSERT_EQ(run.status, 0) << run.err;
	EXPECT_NE(run.out.find(" constant 60 degrees (restored from right.state)\n"), std::string::npos)
	    << run.out;
}

TEST_F(StateTest, RecordsThatAreNotThisPluginsAreRefused)
{
	const std::string record = saveAt("20", "good.state");
	ASSERT_EQ(record.size(), kRecordBytes);
	std::string newer = record;
	newer[59] = 2; // record version 2
	std::string otherClass = record;
	otherClass[50] = 'M';
	std::string unfinished = record;
	unfinished[63] = 0; // complete flag
	const std::pair<const char*, std::string> cases[] = {
	    {"empty", ""},
	    {"text", "<preset name='x'/>\n"},
	    {"newer", newer},
	    {"other class", otherClass},
	    {"unfinished", unfinished},
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
		EXPECT_EQ(folderContents(), (std::vector<std::string>{"bad.state", "good.state", "out.wav",
		                                                      "sine.wav", "x.wav"}));
	}
}

} // namespace
} // namespace velora_test
