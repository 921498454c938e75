#include "render_loop.h"

#include "failure.h"
#include "interruption.h"
#include "pan_schedule.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <vector>

namespace velora_render {
namespace {

constexpr int kChunkTarget = 32768; // frames per read and write, about

// A whole number of blocks, so that blocks fall where they would one at a time.
int chunkFrames(int blockSize)
{
	return blockSize * std::max(1, kChunkTarget / blockSize);
}

void interleave(const float* left, const float* right, int frames, float* stereo)
{
	for (int i = 0; i < frames; ++i)
	{
		stereo[2 * i] = left[i];
		stereo[2 * i + 1] = right[i];
	}
}

} // namespace

void renderThrough(AudioSource& source, HostSession& session, const PanCurve& pan,
                   OutputFile& output, int blockSize, StereoStats& levels,
                   const RenderProgress& progress)
{
	const double rate = source.sampleRate();
	PanSchedule schedule;
	const double start = session.normalisedPan(pan.at(0.0));
	session.process(0, schedule.next(start));
	session.process(0, schedule.next(start));

	const int chunk = chunkFrames(blockSize);
	std::vector<float> mono(static_cast<std::size_t>(chunk));
	std::vector<float> stereo(2 * static_cast<std::size_t>(chunk));
	std::int64_t position = 0;
	for (;;)
	{
		if (const int signal = interruption())
			throw Failure(128 + signal, std::string("interrupted (") + strsignal(signal) +
			                                "); nothing was written");
		const int frames = source.read(mono.data(), chunk);
		if (frames == 0)
			break;
		for (int done = 0; done < frames; done += blockSize)
		{
			const int n = std::min(blockSize, frames - done);
			std::copy_n(mono.data() + done, n, session.input());
			position += n;
			const double value =
			    session.normalisedPan(pan.at(static_cast<double>(position) / rate));
			session.process(n, schedule.next(value));
			interleave(session.left(), session.right(), n, stereo.data() + 2 * done);
			levels.add(session.left(), session.right(), n);
		}
		output.write(stereo.data(), frames);
		progress(position);
	}
}

} // namespace velora_render
