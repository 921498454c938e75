#include "x11_runloop.h"

#if SMTG_OS_LINUX
#include "base/source/fobject.h"
#include "vstgui/lib/platform/linux/x11platform.h"
#include "vstgui/lib/platform/platform_x11.h"

#include <cairo/cairo-xcb.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <vector>

namespace Steinberg {
namespace Vst {

namespace {

// Host-side handler objects that forward to VSTGUI's handlers.
class EventForwarder : public Linux::IEventHandler, public FObject
{
public:
	explicit EventForwarder(VSTGUI::X11::IEventHandler* target) : target(target) {}
	void PLUGIN_API onFDIsSet(Linux::FileDescriptor) override { target->onEvent(); }
	VSTGUI::X11::IEventHandler* target;

	DELEGATE_REFCOUNT(FObject)
	DEFINE_INTERFACES
	DEF_INTERFACE(Linux::IEventHandler)
	END_DEFINE_INTERFACES(FObject)
};

class TimerForwarder : public Linux::ITimerHandler, public FObject
{
public:
	explicit TimerForwarder(VSTGUI::X11::ITimerHandler* target) : target(target) {}
	void PLUGIN_API onTimer() override { target->onTimer(); }
	VSTGUI::X11::ITimerHandler* target;

	DELEGATE_REFCOUNT(FObject)
	DEFINE_INTERFACES
	DEF_INTERFACE(Linux::ITimerHandler)
	END_DEFINE_INTERFACES(FObject)
};

template <typename Forwarder, typename Target>
IPtr<Forwarder> takeForwarder(std::vector<IPtr<Forwarder>>& list, Target* target)
{
	auto it = std::find_if(list.begin(), list.end(),
	                       [&](const IPtr<Forwarder>& f) { return f->target == target; });
	if (it == list.end())
		return nullptr;
	IPtr<Forwarder> found = *it;
	list.erase(it);
	return found;
}

class HostRunLoop : public VSTGUI::X11::IRunLoop, public VSTGUI::AtomicReferenceCounted
{
public:
	explicit HostRunLoop(FUnknown* plugFrame) : runLoop(plugFrame) {}

	bool registerEventHandler(int fd, VSTGUI::X11::IEventHandler* handler) override
	{
		if (!runLoop)
			return false;
		auto forwarder = owned(new EventForwarder(handler));
		if (runLoop->registerEventHandler(forwarder, fd) != kResultTrue)
			return false;
		events.push_back(forwarder);
		return true;
	}

	bool unregisterEventHandler(VSTGUI::X11::IEventHandler* handler) override
	{
		auto forwarder = takeForwarder(events, handler);
		return runLoop && forwarder && runLoop->unregisterEventHandler(forwarder) == kResultTrue;
	}

	bool registerTimer(uint64_t interval, VSTGUI::X11::ITimerHandler* handler) override
	{
		if (!runLoop)
			return false;
		auto forwarder = owned(new TimerForwarder(handler));
		if (runLoop->registerTimer(forwarder, interval) != kResultTrue)
			return false;
		timers.push_back(forwarder);
		return true;
	}

	bool unregisterTimer(VSTGUI::X11::ITimerHandler* handler) override
	{
		auto forwarder = takeForwarder(timers, handler);
		return runLoop && forwarder && runLoop->unregisterTimer(forwarder) == kResultTrue;
	}

private:
	FUnknownPtr<Linux::IRunLoop> runLoop;
	std::vector<IPtr<EventForwarder>> events;
	std::vector<IPtr<TimerForwarder>> timers;
};

} // namespace

std::unique_ptr<VSTGUI::IPlatformFrameConfig> hostRunLoopConfig(IPlugFrame* plugFrame)
{
	auto config = std::make_unique<VSTGUI::X11::FrameConfig>();
	config->runLoop = VSTGUI::makeOwned<HostRunLoop>(plugFrame);
	return config;
}

namespace {
xcb_visualtype_t* rootVisual(const xcb_screen_t* screen)
{
	for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem; xcb_depth_next(&depth))
		for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem;
		     xcb_visualtype_next(&visual))
			if (visual.data->visual_id == screen->root_visual)
				return visual.data;
	return nullptr;
}
} // namespace

void letRunLoopFinishCairoDevice()
{
	auto& runLoop = VSTGUI::X11::RunLoop::instance();
	xcb_connection_t* connection = runLoop.getXcbConnection();
	if (!connection || xcb_connection_has_error(connection))
		return;
	const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
	xcb_visualtype_t* visual = screen ? rootVisual(screen) : nullptr;
	if (!visual)
		return;
	// Any surface on the connection gives its device.
	cairo_surface_t* probe = cairo_xcb_surface_create(connection, screen->root, visual, 1, 1);
	runLoop.setDevice(cairo_surface_get_device(probe));
	cairo_surface_destroy(probe);
}

} // namespace Vst
} // namespace Steinberg

#else

namespace Steinberg {
namespace Vst {

std::unique_ptr<VSTGUI::IPlatformFrameConfig> hostRunLoopConfig(IPlugFrame*)
{
	return nullptr;
}

void letRunLoopFinishCairoDevice() {}

} // namespace Vst
} // namespace Steinberg

#endif
