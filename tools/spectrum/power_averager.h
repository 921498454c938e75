// The mean power spectrum of every channel over Hann-windowed frames of N
// samples: frames go in one at a time, the levels in dB come out at the end.
// Two channels share one complex transform (one as the real part, the other
// as the imaginary part), and are told apart by the symmetry of the
// transforms of real signals.
#pragma once

#include "osi/numerics/osifourier.h"

#include <vector>

namespace velora_spectrum {

class PowerAverager
{
public:
	// Level of bins without power: silence reads this, never -inf.
	static constexpr double kFloorDb = -200.0;

	// `fftSize` is a power of two that OsiFourier takes.
	PowerAverager(int fftSize, int channels);

	// Adds one frame of fftSize interleaved samples of every channel.
	void add(const float* interleaved);
	// Bins 0 .. fftSize / 2 of a channel in dB relative to full scale: a
	// full-scale sine centred on a bin reads 0 dB there.
	std::vector<double> levelsDb(int channel) const;
	// False when a sample that was not a finite number came in.
	bool finite() const;
	int fftSize() const { return size; }

private:
	void transformPair(const float* interleaved, int first, bool withSecond);

	int size;
	int channelCount;
	std::vector<double> window;
	double windowSum = 0.0;
	OsiFourier fourier;
	// Summed powers, bins 0 .. size / 2 of channel 0, then channel 1, ...,
	// and a spare row when the channels are odd in number.
	std::vector<double> powerSums;
	int frameCount = 0;
};

} // namespace velora_spectrum
