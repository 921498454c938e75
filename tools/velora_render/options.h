// velora-render's command line.
#pragma once

#include "output_format.h"

#include <string>
#include <vector>

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
	std::vector<std::string> inputPaths; // none: the built-in test signal
	std::string outputPath;
	// A batch: every input (and the audio files under inputFolder) rendered
	// into outputFolder, mirroring the inputs' tree.
	std::string outputFolder;
	std::string inputFolder;
	bool recursive = false;
	std::string format; // the batch's output extension; empty: each input's own
	int jobs = 0;       // files rendered at once; 0: one per core
	bool force = false; // render even what is up to date
	std::string reportPath;
	bool progress = false;  // a progress line also when stderr is no terminal
	std::string pluginPath; // empty: look in the default places
	int blockSize = 512;
	PanOption pan;
	std::string loadStatePath;
	std::string saveStatePath;
	std::string plotPath; // a PNG of the input's and the output's spectra
	Encoding encoding = Encoding::automatic;
	bool quiet = false;
	bool help = false;
	bool version = false;
};

constexpr int kMaxBlockSize = 65536;
constexpr int kMaxJobs = 127;

// Whether the options name a batch rather than one output file.
inline bool isBatch(const Options& options)
{
	return !options.outputFolder.empty();
}

// Reads the arguments (argv[0] is the program); throws a usage failure that
// names the offending option.
Options parseArguments(int argc, const char* const* argv);

// The text of --help.
std::string usageText();

} // namespace velora_render
