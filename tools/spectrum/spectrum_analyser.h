// The averaged power spectrum of every channel of an audio file, or of
// samples in memory: Hann-windowed frames of fftSize samples overlapping by
// half, averaged over the whole audio or over the part that the options give.
// The audio is streamed: the memory used does not grow with its length.
#pragma once

#include "channel_spectrum.h"
#include "sample_source.h"
#include "spectrum_options.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velora_spectrum {

class SpectrumAnalyser
{
public:
	// Throws SpectrumFailure for options that cannot be used: a size that is
	// not a power of two in range, a negative start or an end before it.
	explicit SpectrumAnalyser(const SpectrumOptions& options = {});

	// One spectrum per channel of the file, labelled "<file>" (mono),
	// "<file>, left" and "<file>, right" (stereo), or "<file>, channel <n>".
	// Throws SpectrumFailure, naming the file, when it cannot be analysed.
	std::vector<ChannelSpectrum> analyse(const std::string& path) const;
	// The same for `frames` frames of interleaved samples, labelled with `name`.
	std::vector<ChannelSpectrum> analyse(const float* interleaved, std::int64_t frames,
	                                     int channels, double sampleRate,
	                                     const std::string& name) const;

private:
	std::vector<ChannelSpectrum> analyse(SampleSource& source) const;

	SpectrumOptions options;
};

} // namespace velora_spectrum
