// The files of a batch: each input with the output it renders to, under the
// output folder in the same place as the input under its own folder.
#pragma once

#include "options.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velora_render {

struct BatchFile
{
	std::string input;
	std::string output;
};

// The --in files first, each by its name, then the audio files of --in-dir
// (and its subfolders with --recursive) in name order, hidden ones and the
// output folder left out. A usage failure for a folder that is not there and
// for two inputs that would write one output.
std::vector<BatchFile> planBatch(const Options& options);

} // namespace velora_render
