// The editor in a real window: an X11 window under a virtual X server (the
// test starts Xvfb itself when no display is set), the "editor" view from the
// loaded bundle attached to it with the SDK's X11 platform type, and a host
// run loop that serves VSTGUI's file descriptors and timers.
#include "persist/memory_stream.h"
#include "support/loaded_bundle.h"

#include "pluginterfaces/gui/iplugview.h"

#include <X11/Xlib.h>
#include <cairo.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>
#include <vector>

namespace velora_test {
namespace {

using Clock = std::chrono::steady_clock;

// Starts Xvfb on a free display when there is no display to use.
class VirtualDisplay : public ::testing::Environment
{
public:
	void SetUp() override
	{
		if (std::getenv("DISPLAY") && probe())
			return;
		for (int number = 97; number < 120 && !display; ++number)
			start(number);
		ASSERT_NE(display, nullptr) << "no X server, and Xvfb could not be started";
	}
	void TearDown() override
	{
		if (display)
			XCloseDisplay(display);
		if (server > 0)
		{
			kill(server, SIGTERM);
			waitpid(server, nullptr, 0);
		}
	}
	static Display* display;

private:
	bool probe()
	{
		display = XOpenDisplay(nullptr);
		return display != nullptr;
	}
	void start(int number)
	{
		const std::string name = ":" + std::to_string(number);
		if (access(("/tmp/.X11-unix/X" + std::to_string(number)).c_str(), F_OK) == 0)
			return;
		server = fork();
		if (server == 0)
		{
			// Not holding the test's output open, and gone if the test dies.
			prctl(PR_SET_PDEATHSIG, SIGTERM);
			const int quiet = open("/dev/null", O_WRONLY);
			dup2(quiet, STDOUT_FILENO);
			dup2(quiet, STDERR_FILENO);
			execlp("Xvfb", "Xvfb", name.c_str(), "-screen", "0", "640x480x24", "-nolisten", "tcp",
			       static_cast<char*>(nullptr));
			_exit(127);
		}
		setenv("DISPLAY", name.c_str(), 1);
		for (int tries = 0; tries < 100 && !probe(); ++tries)
			std::this_thread::sleep_for(std::chrono::milliseconds(50));
		if (!display)
		{
			kill(server, SIGTERM);
			waitpid(server, nullptr, 0);
			server = 0;
		}
	}
	pid_t server = 0;
};
Display* VirtualDisplay::display = nullptr;
const auto* virtualDisplay = ::testing::AddGlobalTestEnvironment(new VirtualDisplay);

// The host's side of the window: the plug frame and its run loop.
class HostFrame : public IPlugFrame, public Linux::IRunLoop
{
public:
	HostFrame(){FUNKNOWN_CTOR} tresult PLUGIN_API
	    resizeView(IPlugView* view, ViewRect* newSize) override
	{
		resized = true;
		return view->onSize(newSize);
	}
	tresult PLUGIN_API registerEventHandler(Linux::IEventHandler* handler,
	                                        Linux::FileDescriptor fd) override
	{
		handler->addRef();
		events.push_back({handler, fd});
		return kResultTrue;
	}
	tresult PLUGIN_API unregisterEventHandler(Linux::IEventHandler* handler) override
	{
		for (auto it = events.begin(); it != events.end(); ++it)
			if (it->handler == handler)
			{
				handler->release();
				events.erase(it);
				return kResultTrue;
			}
		return kResultFalse;
	}
	tresult PLUGIN_API registerTimer(Linux::ITimerHandler* handler,
	                                 Linux::TimerInterval milliseconds) override
	{
		handler->addRef();
		timers.push_back({handler, std::chrono::milliseconds(milliseconds), Clock::now()});
		return kResultTrue;
	}
	tresult PLUGIN_API unregisterTimer(Linux::ITimerHandler* handler) override
	{
		for (auto it = timers.begin(); it != timers.end(); ++it)
			if (it->handler == handler)
			{
				handler->release();
				timers.erase(it);
				return kResultTrue;
			}
		return kResultFalse;
	}

	// Serves ready descriptors and due timers for a while.
	void run(std::chrono::milliseconds span)
	{
		const auto until = Clock::now() + span;
		while (Clock::now() < until)
		{
			std::vector<pollfd> fds;
			for (const auto& e : events)
				fds.push_back({e.fd, POLLIN, 0});
			poll(fds.data(), fds.size(), 10);
			const auto ready = events; // handlers may unregister while called
			for (size_t i = 0; i < fds.size(); ++i)
				if (fds[i].revents & POLLIN)
					ready[i].handler->onFDIsSet(ready[i].fd);
			for (auto& t : timers)
				if (Clock::now() - t.last >= t.interval)
				{
					t.last = Clock::now();
					t.handler->onTimer();
					++timerCalls;
				}
		}
	}

	bool resized = false;
	int timerCalls = 0;
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
		std::chrono::milliseconds interval;
		Clock::time_point last;
	};
	std::vector<Event> events;
	std::vector<Timer> timers;
};

tresult PLUGIN_API HostFrame::queryInterface(const TUID iid, void** obj)
{
	QUERY_INTERFACE(iid, obj, FUnknown::iid, IPlugFrame)
	QUERY_INTERFACE(iid, obj, IPlugFrame::iid, IPlugFrame)
	QUERY_INTERFACE(iid, obj, Linux::IRunLoop::iid, Linux::IRunLoop)
	*obj = nullptr;
	return kNoInterface;
}
IMPLEMENT_REFCOUNT(HostFrame)

TEST(EditorWindow, AttachesToAnX11WindowAndFollowsTheState)
{
	Display* display = VirtualDisplay::display;
	ASSERT_NE(display, nullptr);
	const Window window =
	    XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 400, 300, 0, 0, 0);
	XMapWindow(display, window);
	XFlush(display);

	PlugPair plug;
	auto view = owned(plug.controller->createView(ViewType::kEditor));
	ASSERT_TRUE(view);
	EXPECT_EQ(view->isPlatformTypeSupported(kPlatformTypeX11EmbedWindowID), kResultTrue);
	HostFrame host;
	ASSERT_EQ(view->setFrame(&host), kResultTrue);
	ASSERT_EQ(view->attached(reinterpret_cast<void*>(window), kPlatformTypeX11EmbedWindowID),
	          kResultOk);
	host.run(std::chrono::milliseconds(300));
	EXPECT_GT(host.timerCalls, 0);
	EXPECT_GT(host.registeredEvents(), 0u);

	// The window is the size of the background picture.
	const std::string background = bundlePath() + "/Contents/Resources/background.png";
	cairo_surface_t* picture = cairo_image_surface_create_from_png(background.c_str());
	ViewRect size;
	ASSERT_EQ(view->getSize(&size), kResultTrue);
	EXPECT_EQ(size.getWidth(), cairo_image_surface_get_width(picture));
	EXPECT_EQ(size.getHeight(), cairo_image_surface_get_height(picture));
	cairo_surface_destroy(picture);

	// A restored state turns the knob in the open window.
	auto record = owned(new MemoryStream);
	plug.controller->setParamNormalized(100, 0.9);
	plug.controller->getState(record);
	plug.controller->setParamNormalized(100, 0.5);
	record->seek(0, IBStream::kIBSeekSet, nullptr);
	ASSERT_EQ(plug.controller->setComponentState(record), kResultOk);
	host.run(std::chrono::milliseconds(200));
	// The value went through the knob (a float) and back to the controller.
	EXPECT_NEAR(plug.controller->getParamNormalized(100), 0.9, 1e-6);
	EXPECT_NE(plug.controller->getParamNormalized(100), 0.9);

	EXPECT_EQ(view->removed(), kResultOk);
	view->setFrame(nullptr);
	host.run(std::chrono::milliseconds(50));
	EXPECT_EQ(host.registeredEvents(), 0u);
	XDestroyWindow(display, window);
	XFlush(display);
}

} // namespace
} // namespace velora_test
