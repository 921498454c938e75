// Where the plug-in bundle is when --plugin does not say.
#pragma once

#include <string>

namespace velora_render {

// The bundle built next to this tool, else ~/.vst3/TorvikVelora.vst3; a
// runtime failure naming both places when neither exists.
std::string defaultBundlePath();

// The bundle given with --plugin, or the default one.
std::string bundlePathFor(const std::string& pluginOption);

} // namespace velora_render
