#include "bundle_location.h"

#include "failure.h"

#include <cstdlib>
#include <filesystem>

namespace velora_render {

namespace fs = std::filesystem;

std::string defaultBundlePath()
{
	std::error_code error;
	// VELORA_BUNDLE_FROM_TOOL: the build's bundle relative to the folder the
	// build puts this tool in.
	const fs::path tool = fs::read_symlink("/proc/self/exe", error);
	const fs::path built =
	    error ? fs::path() : (tool.parent_path() / VELORA_BUNDLE_FROM_TOOL).lexically_normal();
	if (!built.empty() && fs::is_directory(built, error))
		return built.string();

	const char* home = std::getenv("HOME");
	const fs::path installed = fs::path(home ? home : "") / ".vst3" / "TorvikVelora.vst3";
	if (home && fs::is_directory(installed, error))
		return installed.string();

	throw runtimeError("no TorvikVelora.vst3 next to this tool (" + built.string() + ") or in " +
	                   installed.string() + "; build it, or name one with --plugin");
}

std::string bundlePathFor(const std::string& pluginOption)
{
	return pluginOption.empty() ? defaultBundlePath() : pluginOption;
}

} // namespace velora_render
