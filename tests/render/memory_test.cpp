// Streaming: the peak memory of a render does not grow with the length of
// the file, and an interrupted render leaves nothing behind.
#include "render/render_runner.h"
#include "render/sound_files.h"

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

namespace velora_test {
namespace {

constexpr int kRate = 44100;

TEST_F(RenderTest, PeakMemoryDoesNotGrowWithTheLength)
{
	// One minute against seven: a render that kept its input or output would
	// need over 100 MB more for the long one.
	writeSine(path("short.wav"), 60 * kRate, kRate, 440.0, 0.5, 1,
	          SF_FORMAT_WAV | SF_FORMAT_PCM_16);
	writeSine(path("long.wav"), 7 * 60 * kRate, kRate, 440.0, 0.5, 1,
	          SF_FORMAT_WAV | SF_FORMAT_PCM_16);
	const auto peakKb = [&](const char* input) {
		const RenderRun run = render(
		    {"--in", input, "--out", "out.wav", "--encoding", "pcm16", "--sweep", "-90:90", "-q"});
		EXPECT_EQ(run.status, 0) << run.err;
		return run.maxRssKb;
	};
	const long shortKb = peakKb("short.wav");
	const long longKb = peakKb("long.wav");
	ASSERT_GT(shortKb, 0);
	std::printf("peak memory: %ld KiB for one minute, %ld KiB for seven\n", shortKb, longKb);
	EXPECT_EQ(readSound(path("out.wav")).left.size(), static_cast<std::size_t>(7 * 60 * kRate));
	EXPECT_LT(longKb, shortKb + 8 * 1024)
	    << "short " << shortKb << " KiB, long " << longKb << " KiB";
}

TEST_F(RenderTest, AnInterruptedRenderLeavesNoOutput)
{
	writeSine(path("in.wav"), 60 * kRate, kRate, 440.0, 0.5, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
	writeText(path("out.wav"), "earlier");
	// One frame per block keeps the render busy for a good while; interrupt it
	// once its pending output exists.
	const int pid = start({"--in", "in.wav", "--out", "out.wav", "--block", "1"});
	const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
	bool pending = false;
	while (!pending && std::chrono::steady_clock::now() < deadline)
	{
		for (const auto& name : folderContents())
			pending = pending || name.rfind(".out.wav.", 0) == 0;
		std::this_thread::sleep_for(std::chrono::milliseconds(2));
	}
	EXPECT_TRUE(pending);
	kill(pid, SIGINT);
	const RenderRun run = finish(pid);
	EXPECT_EQ(run.status, 128 + SIGINT);
	EXPECT_NE(run.err.find("interrupted"), std::string::npos) << run.err;
	EXPECT_EQ(folderContents(), (std::vector<std::string>{"in.wav", "out.wav"}));
	EXPECT_EQ(readBytes(path("out.wav")), "earlier");
}

} // namespace
} // namespace velora_test
