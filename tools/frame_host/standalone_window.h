// A program's own top-level X11 window with a VSTGUI frame in it, served by
// a FrameRunLoop: what a standalone tool shows its views in. The window
// manager's close button (WM_DELETE_WINDOW) ends run(), as quit() does.
#pragma once

#include "frame_run_loop.h"

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/platform/iplatformframe.h"

#include <memory>
#include <string>

// Xlib's own declaration; its header's macros (None, Bool) would clash with
// VSTGUI's names.
typedef struct _XDisplay Display;

namespace velora_frame {

class StandaloneWindow
{
public:
	// Connects to the X server in DISPLAY and opens the window, shown once
	// run() serves it; see problem() when that fails.
	StandaloneWindow(const std::string& title, int width, int height);
	~StandaloneWindow();
	StandaloneWindow(const StandaloneWindow&) = delete;
	StandaloneWindow& operator=(const StandaloneWindow&) = delete;

	// Why the window could not be opened; empty when it is open.
	const std::string& problem() const { return failure; }
	VSTGUI::CFrame* frame() const { return shown; }

	// Serves the window's events until it is closed or quit() is called.
	void run();
	void quit() { running = false; }

private:
	void serveOwnEvents();

	FrameRunLoop loop;
	Display* display = nullptr;
	unsigned long window = 0;
	unsigned long deleteWindow = 0;
	// The VSTGUI frame's own X window inside ours; 0 before it exists.
	unsigned long frameWindow = 0;
	VSTGUI::CFrame* shown = nullptr;
	std::unique_ptr<VSTGUI::IPlatformFrameConfig> config;
	std::string failure;
	bool running = false;
};

} // namespace velora_frame
