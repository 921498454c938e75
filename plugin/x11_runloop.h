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

} // namespace Vst
} // namespace Steinberg
