// The host's side of a VSTGUI window: the plug frame and the Linux run loop
// that serves VSTGUI's file descriptors and timers. Time in the loop is
// counted in ticks, not read from a clock: each tick waits briefly for the
// registered descriptors, serves every handler and advances the timers by
// one tick's length, so a caller bounds its waits by a count of ticks.
#pragma once

#include "pluginterfaces/gui/iplugview.h"

#include <vector>

namespace velora_frame {

using namespace Steinberg;

class FrameRunLoop : public IPlugFrame, public Linux::IRunLoop
{
public:
	static constexpr Linux::TimerInterval kTickMs = 10;

	FrameRunLoop();
	virtual ~FrameRunLoop();

	tresult PLUGIN_API resizeView(IPlugView* view, ViewRect* newSize) override;
	tresult PLUGIN_API registerEventHandler(Linux::IEventHandler* handler,
	                                        Linux::FileDescriptor fd) override;
	tresult PLUGIN_API unregisterEventHandler(Linux::IEventHandler* handler) override;
	tresult PLUGIN_API registerTimer(Linux::ITimerHandler* handler,
	                                 Linux::TimerInterval milliseconds) override;
	tresult PLUGIN_API unregisterTimer(Linux::ITimerHandler* handler) override;

	void tick();
	void run(int ticks);
	// Turns the loop until done() holds, at most maxTicks times; tells whether it held.
	template <typename Done> bool runUntil(Done done, int maxTicks)
	{
		for (int i = 0; i < maxTicks; ++i, tick())
			if (done())
				return true;
		return false;
	}

	int timerCalls() const { return firedTimers; }
	size_t registeredEvents() const { return events.size(); }

	DECLARE_FUNKNOWN_METHODS
private:
	struct Event
	{
		Linux::IEventHandler* handler;
		Linux::FileDescriptor fd;
	};
	struct Timer
	{
		Linux::ITimerHandler* handler;
		Linux::TimerInterval interval;
		Linux::TimerInterval elapsed;
	};
	std::vector<Event> events;
	std::vector<Timer> timers;
	int firedTimers = 0;
};

} // namespace velora_frame
