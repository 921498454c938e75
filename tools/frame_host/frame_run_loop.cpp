#include "frame_run_loop.h"

#include <poll.h>

#include <algorithm>

namespace velora_frame {

namespace {
template <typename Entries, typename Handler>
bool isRegistered(const Entries& entries, Handler* handler)
{
	return std::any_of(entries.begin(), entries.end(),
	                   [&](const auto& entry) { return entry.handler == handler; });
}

// Drops the handler's entry and the reference taken when it was registered.
template <typename Entries, typename Handler>
Steinberg::tresult unregister(Entries& entries, Handler* handler)
{
	const auto it = std::find_if(entries.begin(), entries.end(),
	                             [&](const auto& entry) { return entry.handler == handler; });
	if (it == entries.end())
		return Steinberg::kResultFalse;
	handler->release();
	entries.erase(it);
	return Steinberg::kResultTrue;
}
} // namespace

FrameRunLoop::FrameRunLoop(){FUNKNOWN_CTOR}

FrameRunLoop::~FrameRunLoop()
{
	for (auto& e : events)
		e.handler->release();
	for (auto& t : timers)
		t.handler->release();
	FUNKNOWN_DTOR
}

tresult PLUGIN_API FrameRunLoop::queryInterface(const TUID iid, void** obj)
{
	QUERY_INTERFACE(iid, obj, FUnknown::iid, IPlugFrame)
	QUERY_INTERFACE(iid, obj, IPlugFrame::iid, IPlugFrame)
	QUERY_INTERFACE(iid, obj, Linux::IRunLoop::iid, Linux::IRunLoop)
	*obj = nullptr;
	return kNoInterface;
}
IMPLEMENT_REFCOUNT(FrameRunLoop)

tresult PLUGIN_API FrameRunLoop::resizeView(IPlugView* view, ViewRect* newSize)
{
	return view->onSize(newSize);
}

tresult PLUGIN_API FrameRunLoop::registerEventHandler(Linux::IEventHandler* handler,
                                                      Linux::FileDescriptor fd)
{
	handler->addRef();
	events.push_back({handler, fd});
	return kResultTrue;
}

tresult PLUGIN_API FrameRunLoop::unregisterEventHandler(Linux::IEventHandler* handler)
{
	return unregister(events, handler);
}

tresult PLUGIN_API FrameRunLoop::registerTimer(Linux::ITimerHandler* handler,
                                               Linux::TimerInterval milliseconds)
{
	handler->addRef();
	timers.push_back({handler, std::max<Linux::TimerInterval>(milliseconds, 1), 0});
	return kResultTrue;
}

tresult PLUGIN_API FrameRunLoop::unregisterTimer(Linux::ITimerHandler* handler)
{
	return unregister(timers, handler);
}

void FrameRunLoop::tick()
{
	std::vector<pollfd> fds;
	for (const auto& e : events)
		fds.push_back({e.fd, POLLIN, 0});
	poll(fds.data(), fds.size(), static_cast<int>(kTickMs));
	// Every handler is served on every tick, readable or not: VSTGUI's X11
	// handler ends with a round trip to the server, and events arriving
	// meanwhile (the release that ends a drag) are read into its
	// connection's own queue, where the descriptor no longer shows them.
	// Handlers may unregister others while they are called: only those still
	// registered are called, each held by a reference meanwhile.
	const auto served = events;
	for (const auto& e : served)
		if (isRegistered(events, e.handler))
		{
			IPtr<Linux::IEventHandler> handler = e.handler;
			handler->onFDIsSet(e.fd);
		}
	std::vector<Linux::ITimerHandler*> due;
	for (auto& t : timers)
		if ((t.elapsed += kTickMs) >= t.interval)
		{
			t.elapsed = 0;
			due.push_back(t.handler);
		}
	for (auto* timer : due)
		if (isRegistered(timers, timer))
		{
			IPtr<Linux::ITimerHandler> handler = timer;
			handler->onTimer();
			++firedTimers;
		}
}

void FrameRunLoop::run(int ticks)
{
	for (int i = 0; i < ticks; ++i)
		tick();
}

} // namespace velora_frame
