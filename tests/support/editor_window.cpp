#include "support/editor_window.h"

#include "nxvelora_editor_layout.h"
#include "support/virtual_display.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace velora_test {

namespace Layout = Steinberg::Vst::EditorLayout;

EditorWindow::EditorWindow(IEditController* controller, HostFrame& host, int x, int y)
: plugView(owned(controller->createView(ViewType::kEditor)))
{
	Display* display = VirtualDisplay::display;
	window = XCreateSimpleWindow(display, DefaultRootWindow(display), x, y, Layout::kPanelWidth,
	                             Layout::kPanelHeight, 0, 0, 0);
	XSelectInput(display, window, SubstructureNotifyMask);
	XMapWindow(display, window);
	// The window exists on the server before the plug-in is told of it.
	XSync(display, False);
	if (!plugView)
		return;
	plugView->setFrame(&host);
	isAttached = plugView->attached(reinterpret_cast<void*>(window),
	                                kPlatformTypeX11EmbedWindowID) == kResultOk;
}

EditorWindow::~EditorWindow()
{
	if (plugView)
	{
		plugView->removed();
		plugView->setFrame(nullptr);
	}
	XDestroyWindow(VirtualDisplay::display, window);
	XFlush(VirtualDisplay::display);
}

std::vector<unsigned long> EditorWindow::face() const
{
	mapPluginWindow();
	const int knobHalf = Layout::kKnobSize / 2;
	const int knobX = static_cast<int>(Layout::kKnobCentreX);
	const int knobY = static_cast<int>(Layout::kKnobCentreY);
	const auto& d = Layout::kDisplayBox;
	std::vector<unsigned long> pixels;
	addPixels(pixels, knobX - knobHalf, knobY - knobHalf, knobX + knobHalf, knobY + knobHalf);
	addPixels(pixels, static_cast<int>(d.left), static_cast<int>(d.top), static_cast<int>(d.right),
	          static_cast<int>(d.bottom));
	return pixels;
}

// The embedder maps the plug-in's window once the X server has it, as XEmbed
// has it.
void EditorWindow::mapPluginWindow() const
{
	XEvent event;
	while (XCheckTypedWindowEvent(VirtualDisplay::display, window, CreateNotify, &event))
		XMapWindow(VirtualDisplay::display, event.xcreatewindow.window);
}

void EditorWindow::addPixels(std::vector<unsigned long>& pixels, int left, int top, int right,
                             int bottom) const
{
	XImage* image =
	    XGetImage(VirtualDisplay::display, window, left, top, static_cast<unsigned>(right - left),
	              static_cast<unsigned>(bottom - top), AllPlanes, ZPixmap);
	if (!image)
		return;
	for (int y = 0; y < bottom - top; ++y)
		for (int x = 0; x < right - left; ++x)
			pixels.push_back(XGetPixel(image, x, y));
	XDestroyImage(image);
}

} // namespace velora_test
