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
	const int wav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16, wav24 = SF_FORMAT_WAV | SF_FORMAT_PCM_24;
	const int wavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT,
	          flac24 = SF_FORMAT_FLAC | SF_FORMAT_PCM_24;
	const int aiff16 = SF_FORMAT_AIFF | SF_FORMAT_PCM_16;
	const struct
	{
		int channels, inFormat, frames;
		const char* out;
		int outFormat, block;
		double from, to; // a sweep, or a constant pan when equal
		std::vector<std::string> more;
	} cases[] = {
	    {1, wav16, 100003, "a.wav", wavFloat, 512, -90, 90, {}},
	    {2, wav24, 70001, "b.flac", flac24, 333, 90, -60, {}},
	    {3, aiff16, 50000, "c.wav", wav16, 1000, -80, -80, {"--encoding", "pcm16"}},
	    {1, wavFloat, 80000, "d.wav", wavFloat, 65536, 35, 35, {}},
	    {1, wav16, 9000, "e.wav", wavFloat, 1, -30, 30, {}},
	};
	for (const auto& c : cases)
	{
		SCOPED_TRACE(c.out);
		writeSine(path("in"), c.frames, 48000, 441.0, 0.9, c.channels, c.inFormat, -0.7);
		const auto degrees = [](double d) { return std::to_string(static_cast<int>(d)); };
		std::vector<std::string> args = {
		    "-q", "--in", "in", "--out", c.out, "--block", std::to_string(c.block)};
		if (c.from == c.to)
			args.insert(args.end(), {"--pan", degrees(c.from)});
		else
			args.insert(args.end(), {"--sweep", degrees(c.from) + ":" + degrees(c.to)});
		args.insert(args.end(), c.more.begin(), c.more.end());
		const RenderRun run = render(args);
		ASSERT_EQ(run.status, 0) << run.err;
		referenceRender(path("in"), path("reference"), c.outFormat, c.block,
		                c.from == c.to ? PanCurve::constant(c.from)
		                               : PanCurve::line(c.from, c.to, c.frames / 48000.0));
		const std::string rendered = readBytes(path(c.out));
		EXPECT_GT(rendered.size(), static_cast<std::size_t>(c.frames));
		EXPECT_TRUE(rendered == readBytes(path("reference")));
	}
}

} // namespace
} // namespace velora_test
