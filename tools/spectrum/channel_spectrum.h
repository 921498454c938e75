// The averaged power spectrum of one channel of an audio file: what
// velora-scope shows and velora-render's --plot draws.
#pragma once

#include <string>
#include <vector>

namespace velora_spectrum {

struct ChannelSpectrum
{
	// Names the trace in legends and messages, e.g. "tone.wav, channel 1".
	std::string label;
	double sampleRate = 0;
	int fftSize = 0;
	// Power in dB relative to full scale at bin k, k * sampleRate / fftSize Hz,
	// for k = 0 .. fftSize / 2. A full-scale sine reads 0 dB at its bin.
	std::vector<double> levelDb;

	double binWidthHz() const { return sampleRate / fftSize; }
};

} // namespace velora_spectrum
