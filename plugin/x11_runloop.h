// Hands VSTGUI's X11 frame the host's run loop (Steinberg::Linux::IRunLoop),
// which the host's plug frame provides on Linux.
#pragma once

#include "pluginterfaces/gui/iplugview.h"
#include "vstgui/lib/platform/iplatformframe.h"

#include <memory>

namespace Steinberg {
namespace Vst {

// The frame configuration for opening a VSTGUI frame inside the host's window:
// on Linux one that routes VSTGUI's file-descriptor and timer callbacks
// through the host's run loop; elsewhere none is needed (null).
std::unique_ptr<VSTGUI::IPlatformFrameConfig> hostRunLoopConfig(IPlugFrame* plugFrame);

// Called once a frame is open. VSTGUI's X11 run loop closes its X connection
// when the last frame closes, but never finishes cairo's device for it; cairo
// keeps that device keyed by the connection's address, and an editor opened
// later, whose new connection lands at the same address, draws into the dead
// one: a blank window on reopening. Handed the device, the run loop finishes
// it before disconnecting.
void letRunLoopFinishCairoDevice();

} // namespace Vst
} // namespace Steinberg
