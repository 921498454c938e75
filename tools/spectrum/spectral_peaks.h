// The strongest peaks of a spectrum, with their frequency and level read
// between the bins.
#pragma once

#include "channel_spectrum.h"

#include <vector>

namespace velora_spectrum {

struct SpectralPeak
{
	double frequencyHz = 0;
	double levelDb = 0;
};

// The `n` strongest local maxima of `spectrum`, strongest first.
//
// Between bins, the shape of the Hann window's main lobe is used (the window
// of SpectrumAnalyser): a sine d bins above bin k gives neighbouring
// magnitudes in the ratio |X_(k+1)| / |X_k| = (1 + d) / (2 - d), which fixes
// d, and the lobe's height at d gives the level. For one sine this is exact,
// where a parabola through the dB values is up to 0.02 bin and 0.3 dB out.
std::vector<SpectralPeak> findPeaks(const ChannelSpectrum& spectrum, int n);

} // namespace velora_spectrum
