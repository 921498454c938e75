// What an analysis covers: the transform size and the part of the audio.
#pragma once

#include <limits>

namespace velora_spectrum {

struct SpectrumOptions
{
	// The transform sizes accepted: powers of two in this range (the largest
	// is the largest that the framework's transform takes).
	static constexpr int kMinFftSize = 16;
	static constexpr int kMaxFftSize = 1 << 19;

	int fftSize = 8192;
	// The part averaged, in seconds from the start; the end is clipped to the
	// length of the audio.
	double fromSeconds = 0.0;
	double toSeconds = std::numeric_limits<double>::infinity();
};

} // namespace velora_spectrum
