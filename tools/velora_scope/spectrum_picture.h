// The graph of spectra drawn offscreen, with its legend, as PNG bytes: what
// velora-scope --png and velora-render --plot write. Needs a GraphToolkit.
#pragma once

#include "channel_spectrum.h"

#include <string>
#include <vector>

namespace velora_scope {

// Empty when drawing fails.
std::vector<unsigned char>
spectrumPicture(const std::vector<velora_spectrum::ChannelSpectrum>& spectra,
                const std::string& title, int width, int height);

// Writes the bytes under path whole or not at all: an existing file stays
// untouched unless all was written. Throws a runtime failure naming the file.
void writePicture(const std::string& path, const std::vector<unsigned char>& png);

} // namespace velora_scope
