// A second of a 1 kHz tone at half scale in white noise 60 dB down, written
// with libsndfile at 48 kHz; the right channel is the left 20 dB down, so
// each channel's trace is drawn apart over the whole frequency range.
#pragma once

#include <sndfile.h>

#include <random>
#include <string>
#include <vector>

namespace velora_test {

inline bool writeToneInNoise(const std::string& path)
{
	constexpr int kRate = 48000;
	std::minstd_rand random(7);
	std::normal_distribution<float> noise(0.0f, 0.0005f);
	std::vector<float> frames;
	for (int i = 0; i < kRate; ++i)
	{
		const float s =
		    0.5f * static_cast<float>(std::sin(2 * M_PI * 1000.0 * i / kRate)) + noise(random);
		frames.insert(frames.end(), {s, 0.1f * s});
	}
	SF_INFO info{};
	info.samplerate = kRate;
	info.channels = 2;
	info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
	SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
	const bool written = file && sf_writef_float(file, frames.data(), kRate) == kRate;
	return sf_close(file) == 0 && written;
}

} // namespace velora_test
