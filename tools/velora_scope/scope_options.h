// velora-scope's command line.
#pragma once

#include "spectrum_options.h"

#include <string>
#include <vector>

namespace velora_scope {

struct ScopeOptions
{
	std::vector<std::string> files;
	velora_spectrum::SpectrumOptions analysis;
	std::string pngPath; // set: draw offscreen to this file, no window
	int width = 1000;
	int height = 600;
	int peaks = 0; // above 0: print this many peaks per channel, no window
	bool help = false;
	bool version = false;
};

constexpr int kMaxPictureSide = 8192;
constexpr int kMinPictureSide = 100;
constexpr int kMaxPeaks = 1000;

// Reads the arguments (argv[0] is the program); throws a usage failure that
// names the offending option.
ScopeOptions parseScopeArguments(int argc, const char* const* argv);
// The text of --help.
std::string scopeUsageText();

} // namespace velora_scope
