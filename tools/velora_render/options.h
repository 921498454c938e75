// velora-render's command line.
#pragma once

#include "output_format.h"

#include <string>

namespace velora_render {

struct PanOption
{
	enum class Kind
	{
		none,       // the plug-in's own angle (default or restored), or a sweep for the test signal
		constant,   // --pan DEG
		sweep,      // --sweep FROM:TO
		automation, // --automation FILE
	};
	Kind kind = Kind::none;
	double from = 0.0; // degrees: the constant angle, or the sweep's start
	double to = 0.0;   // degrees: the sweep's end
	std::string automationPath;
};

struct Options
{
	std::string inputPath; // empty: the built-in test signal
	std::string outputPath;
	std::string pluginPath; // empty: look in the default places
	int blockSize = 512;
	PanOption pan;
	std::string loadStatePath;
	std::string saveStatePath;
	Encoding encoding = Encoding::automatic;
	bool quiet = false;
	bool help = false;
	bool version = false;
};

constexpr int kMaxBlockSize = 65536;

// Reads the arguments (argv[0] is the program); throws a usage failure that
// names the offending option.
Options parseArguments(int argc, const char* const* argv);

// The text of --help.
std::string usageText();

} // namespace velora_render
