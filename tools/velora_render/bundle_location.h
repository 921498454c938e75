// Where the plug-in bundle is when --plugin does not say.
#pragma once

#include <string>

namespace velora_render {

// The bundle built next to this tool, else ~/.vst3/TorvikVelora.vst3; a
// runtime failure naming both places when neither exists.
std::string defaultBundlePath();

} // namespace velora_render
