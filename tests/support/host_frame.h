// The tests' name for the plug frame and run loop that velora-scope's window
// is served by.
#pragma once

#include "frame_run_loop.h"

namespace velora_test {

using namespace Steinberg;
using HostFrame = velora_frame::FrameRunLoop;

} // namespace velora_test
