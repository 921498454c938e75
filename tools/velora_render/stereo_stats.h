// Level measurements of the rendered stereo signal, gathered block by block:
// per channel the peak and RMS, and the correlation of left and right.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velora_render {

class StereoStats
{
public:
	void add(const float* left, const float* right, int frames);

	std::int64_t frames() const { return count; }
	double peak(int channel) const { return peaks[channel]; }
	double rms(int channel) const;
	// Pearson's correlation of the two channels about zero (1: the same
	// signal, -1: inverted); none when a channel is silent.
	std::optional<double> correlation() const;

private:
	std::int64_t count = 0;
	double peaks[2] = {0.0, 0.0};
	double squares[2] = {0.0, 0.0};
	double products = 0.0;
};

// A linear level in dBFS (full scale 1.0) with two decimals, "-inf" for 0.
std::string dbfs(double level);

} // namespace velora_render
