#include "standalone_window.h"

#include "x11_runloop.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace velora_frame {

StandaloneWindow::StandaloneWindow(const std::string& title, int width, int height)
{
	display = XOpenDisplay(nullptr);
	if (!display)
	{
		failure = "cannot open a window: no X display (is DISPLAY set?)";
		return;
	}
	window =
	    XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, static_cast<unsigned>(width),
	                        static_cast<unsigned>(height), 0, 0, 0);
	XStoreName(display, window, title.c_str());
	Atom protocol = XInternAtom(display, "WM_DELETE_WINDOW", False);
	deleteWindow = protocol;
	XSetWMProtocols(display, window, &protocol, 1);
	XSelectInput(display, window, StructureNotifyMask | SubstructureNotifyMask | FocusChangeMask);
	XFlush(display);

	shown = new VSTGUI::CFrame(VSTGUI::CRect(0, 0, width, height), nullptr);
	config = Steinberg::Vst::hostRunLoopConfig(&loop);
	if (!shown->open(reinterpret_cast<void*>(window), VSTGUI::PlatformType::kX11EmbedWindowID,
	                 config.get()))
		failure = "cannot open a window: VSTGUI could not open its frame";
}

StandaloneWindow::~StandaloneWindow()
{
	if (shown)
	{
		shown->close();
		loop.run(2);
	}
	if (display)
	{
		XDestroyWindow(display, window);
		XCloseDisplay(display);
	}
}

void StandaloneWindow::run()
{
	running = failure.empty();
	while (running)
	{
		loop.tick();
		serveOwnEvents();
	}
}

void StandaloneWindow::serveOwnEvents()
{
	while (running && XPending(display) > 0)
	{
		XEvent event;
		XNextEvent(display, &event);
		switch (event.type)
		{
		case ClientMessage:
			if (static_cast<unsigned long>(event.xclient.data.l[0]) == deleteWindow)
				running = false;
			break;
		case CreateNotify:
			// The embedder maps VSTGUI's window, as XEmbed has it; ours follows,
			// so that the window is never seen without the frame in it.
			frameWindow = event.xcreatewindow.window;
			XMapWindow(display, frameWindow);
			XMapWindow(display, window);
			break;
		case ConfigureNotify:
			if (event.xconfigure.window == window)
				shown->setSize(event.xconfigure.width, event.xconfigure.height);
			break;
		case FocusIn:
			// Keys reach VSTGUI only in its own window: hand it the focus that
			// the window manager gave ours.
			if (event.xfocus.detail != NotifyInferior && frameWindow)
				XSetInputFocus(display, frameWindow, RevertToParent, CurrentTime);
			break;
		default:
			break;
		}
	}
}

} // namespace velora_frame
