// Test material as files, written and read with libsndfile.
#pragma once

#include <sndfile.h>

#include <cstdint>
#include <string>
#include <vector>

namespace velora_test {

struct Sound
{
	std::vector<float> left;  // channel 0
	std::vector<float> right; // channel 1 (empty for mono)
};

// `frames` frames of a sine of `hz` at `amplitude`, as samples and as a file
// (every channel carries it; the second, if any, scaled by `secondGain`).
std::vector<float> sine(std::int64_t frames, int rate, double hz, double amplitude);
void writeSine(const std::string& path, std::int64_t frames, int rate, double hz, double amplitude,
               int channels = 1, int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT,
               double secondGain = 1.0);
Sound readSound(const std::string& path);
void writeText(const std::string& path, const std::string& text);
std::string readBytes(const std::string& path);

// RMS of `samples[from, to)`.
double rms(const std::vector<float>& samples, std::size_t from, std::size_t to);

} // namespace velora_test
