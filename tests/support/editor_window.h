// A host's window with the plug-in's editor in it: an X11 window of the
// editor's size on the virtual display, the "editor" view attached to it as
// an X11 embed window and served by the host frame's run loop.
#pragma once

#include "support/host_frame.h"

#include "pluginterfaces/vst/ivsteditcontroller.h"

#include <vector>

namespace velora_test {

using namespace Steinberg::Vst;

class EditorWindow
{
public:
	EditorWindow(IEditController* controller, HostFrame& host, int x, int y);
	~EditorWindow();

	IPlugView* view() const { return plugView; }
	bool attached() const { return isAttached; }

	// The pixels of the knob and the value display, as the X server holds them.
	std::vector<unsigned long> face() const;

private:
	void mapPluginWindow() const;
	void addPixels(std::vector<unsigned long>& pixels, int left, int top, int right,
	               int bottom) const;

	IPtr<IPlugView> plugView;
	unsigned long window = 0;
	bool isAttached = false;
};

} // namespace velora_test
