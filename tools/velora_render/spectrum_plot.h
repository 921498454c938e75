// velora-render --plot: after a successful render, the spectrum of the input
// and of both output channels on one graph, drawn as velora-scope --png
// draws it, so that the pan law's levels and the far channel's filter show.
#pragma once

#include "options.h"
#include "pending_file.h"

#include <string>

namespace velora_render {

// Analyses the input (the test signal when there is no input file) and the
// written output, and writes the picture to the pending file, made before
// rendering, whole or not at all. Throws a runtime failure naming the file
// that could not be analysed or written.
void writeSpectrumPlot(PendingFile& plot, const Options& options,
                       const std::string& panDescription);

} // namespace velora_render
