// The graph of spectra drawn offscreen, with its legend, as PNG bytes: what
// velora-scope --png and velora-render --plot write. Needs a GraphToolkit.
#pragma once

#include "channel_spectrum.h"
#include "pending_file.h"

#include <string>
#include <vector>

namespace velora_scope {

// Empty when drawing fails.
std::vector<unsigned char>
spectrumPicture(const std::vector<velora_spectrum::ChannelSpectrum>& spectra,
                const std::string& title, int width, int height);

// Writes the bytes to the pending file and commits it: the picture appears
// whole or not at all. Throws a runtime failure naming the file.
void writePicture(velora_render::PendingFile& file, const std::vector<unsigned char>& png);

} // namespace velora_scope
