// The tool reads and writes many blocks at a time; its output must be, byte
// for byte, what a plain loop gives that reads one block with libsndfile
// (libsndfile's own sample conversion), processes it and writes it.
#include "render/render_runner.h"
#include "render/sound_files.h"

#include "host_session.h"
#include "pan_curve.h"
#include "pan_schedule.h"

namespace velora_test {
namespace {

using velora_render::PanCurve;

void referenceRender(const std::string& in, const std::string& out, int outFormat, int block,
                     const PanCurve& pan)
{
	SF_INFO info = {};
	SNDFILE* source = sf_open(in.c_str(), SFM_READ, &info);
	ASSERT_NE(source, nullptr);
	SF_INFO outInfo = {};
	outInfo.samplerate = info.samplerate;
	outInfo.channels = 2;
	outInfo.format = outFormat;
	SNDFILE* target = sf_open(out.c_str(), SFM_WRITE, &outInfo);
	ASSERT_NE(target, nullptr);
	sf_command(target, SFC_SET_CLIPPING, nullptr, SF_TRUE);
	sf_command(target, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);

	velora_render::HostSession session(VELORA_BUNDLE_PATH);
	session.start(info.samplerate, block);
	velora_render::PanSchedule schedule;
	const double start = session.normalisedPan(pan.at(0.0));
	session.process(0, schedule.next(start));
	session.process(0, schedule.next(start));
	std::vector<float> frames(static_cast<std::size_t>(block * info.channels));
	std::vector<float> stereo(2 * static_cast<std::size_t>(block));
	std::int64_t position = 0;
	for (sf_count_t n; (n = sf_readf_float(source, frames.data(), block)) > 0;)
	{
		for (sf_count_t i = 0; i < n; ++i)
		{
			float sum = 0.0f;
			for (int c = 0; c < info.channels; ++c)
				sum += frames[static_cast<std::size_t>(i * info.channels + c)];
			session.input()[i] = sum / static_cast<float>(info.channels);
		}
		position += n;
		session.process(static_cast<int>(n),
		                schedule.next(session.normalisedPan(
		                    pan.at(static_cast<double>(position) / info.samplerate))));
		for (sf_count_t i = 0; i < n; ++i)
		{
			stereo[static_cast<std::size_t>(2 * i)] = session.left()[i];
			stereo[static_cast<std::size_t>(2 * i + 1)] = session.right()[i];
		}
		ASSERT_EQ(sf_writef_float(target, stereo.data(), n), n);
	}
	sf_close(source);
	sf_close(target);
}

TEST_F(RenderTest, OutputIsExactlyThatOfAOneBlockAtATimeLoop)
{
	struct Case
	{
		int channels;
		int inFormat;
		std::int64_t frames;
		const char* out;
		int outFormat;
		int block;
		std::vector<std::string> pan;
		PanCurve curve;
	};
	const int wav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
	const int wavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
	const Case cases[] = {
	    {1,
	     wav16,
	     100003,
	     "a.wav",
	     wavFloat,
	     512,
	     {"--sweep", "-90:90"},
	     PanCurve::line(-90, 90, 100003 / 48000.0)},
	    {2,
	     SF_FORMAT_WAV | SF_FORMAT_PCM_24,
	     70001,
	     "b.flac",
	     SF_FORMAT_FLAC | SF_FORMAT_PCM_24,
	     333,
	     {"--sweep", "90:-60"},
	     PanCurve::line(90, -60, 70001 / 48000.0)},
	    {3,
	     SF_FORMAT_AIFF | SF_FORMAT_PCM_16,
	     50000,
	     "c.wav",
	     wav16,
	     1000,
	     {"--pan", "-80", "--encoding", "pcm16"},
	     PanCurve::constant(-80)},
	    {1, wavFloat, 80000, "d.wav", wavFloat, 65536, {"--pan", "35"}, PanCurve::constant(35)},
	    {1,
	     wav16,
	     9000,
	     "e.wav",
	     wavFloat,
	     1,
	     {"--sweep", "-30:30"},
	     PanCurve::line(-30, 30, 9000 / 48000.0)},
	};
	for (const Case& c : cases)
	{
		SCOPED_TRACE(c.out);
		writeSine(path("in"), c.frames, 48000, 441.0, 0.9, c.channels, c.inFormat, -0.7);
		std::vector<std::string> args = {
		    "-q", "--in", "in", "--out", c.out, "--block", std::to_string(c.block)};
		args.insert(args.end(), c.pan.begin(), c.pan.end());
		const RenderRun run = render(args);
		ASSERT_EQ(run.status, 0) << run.err;
		referenceRender(path("in"), path("reference"), c.outFormat, c.block, c.curve);
		const std::string rendered = readBytes(path(c.out));
		EXPECT_GT(rendered.size(), static_cast<std::size_t>(c.frames));
		EXPECT_TRUE(rendered == readBytes(path("reference")));
	}
}

} // namespace
} // namespace velora_test
