#include "render_loop.h"

#include "failure.h"
#include "interruption.h"
#include "pan_schedule.h"

#include <csignal>
#include <cstring>

namespace velora_render {

void renderThrough(AudioSource& source, HostSession& session, const PanCurve& pan,
                   OutputFile& output, int blockSize, StereoStats& levels, Progress& progress)
{
	const double rate = source.sampleRate();
	PanSchedule schedule;
	const double start = session.normalisedPan(pan.at(0.0));
	session.process(0, schedule.next(start));
	session.process(0, schedule.next(start));

	std::int64_t position = 0;
	for (;;)
	{
		if (const int signal = interruption())
			throw Failure(128 + signal, std::string("interrupted (") + strsignal(signal) +
			                                "); nothing was written");
		const int frames = source.read(session.input(), blockSize);
		if (frames == 0)
			break;
		position += frames;
		const double value = session.normalisedPan(pan.at(static_cast<double>(position) / rate));
		session.process(frames, schedule.next(value));
		output.write(session.left(), session.right(), frames);
		levels.add(session.left(), session.right(), frames);
		progress.update(position);
	}
}

} // namespace velora_render
