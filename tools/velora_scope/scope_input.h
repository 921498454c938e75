// The spectra that velora-scope shows: every channel of every file named,
// analysed over the times and with the transform size asked for.
#pragma once

#include "channel_spectrum.h"
#include "scope_options.h"

#include <vector>

namespace velora_scope {

// Throws a runtime failure naming the first file that cannot be read.
std::vector<velora_spectrum::ChannelSpectrum> analyseFiles(const ScopeOptions& options);

// Prints each channel's strongest peaks, one per line: the channel's label,
// the frequency in Hz and the level in dB.
void printPeaks(const std::vector<velora_spectrum::ChannelSpectrum>& spectra, int count);

} // namespace velora_scope
