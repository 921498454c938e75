#include "render/sound_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

namespace velora_test {

std::vector<float> sine(std::int64_t frames, int rate, double hz, double amplitude)
{
	std::vector<float> samples(static_cast<std::size_t>(frames));
	for (std::int64_t i = 0; i < frames; ++i)
		samples[static_cast<std::size_t>(i)] =
		    static_cast<float>(amplitude * std::sin(2.0 * M_PI * hz * i / rate));
	return samples;
}

void writeSine(const std::string& path, std::int64_t frames, int rate, double hz, double amplitude,
               int channels, int format, double secondGain)
{
	const std::vector<float> samples = sine(frames, rate, hz, amplitude);
	std::vector<float> interleaved;
	for (const float s : samples)
		for (int c = 0; c < channels; ++c)
			interleaved.push_back(c == 0 ? s : static_cast<float>(s * secondGain));
	SF_INFO info = {};
	info.samplerate = rate;
	info.channels = channels;
	info.format = format;
	SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
	ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
	EXPECT_EQ(sf_writef_float(file, interleaved.data(), frames), frames);
	sf_close(file);
}

Sound readSound(const std::string& path)
{
	Sound sound;
	SF_INFO info = {};
	SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
	EXPECT_NE(file, nullptr) << path << ": " << sf_strerror(nullptr);
	if (!file)
		return sound;
	std::vector<float> all(static_cast<std::size_t>(info.frames * info.channels));
	const sf_count_t got = sf_readf_float(file, all.data(), info.frames);
	sf_close(file);
	for (std::size_t i = 0; i < static_cast<std::size_t>(got * info.channels); i += info.channels)
	{
		sound.left.push_back(all[i]);
		if (info.channels > 1)
			sound.right.push_back(all[i + 1]);
	}
	return sound;
}

void writeText(const std::string& path, const std::string& text)
{
	std::ofstream out(path, std::ios::binary);
	out << text;
}

std::string readBytes(const std::string& path)
{
	std::ifstream in(path, std::ios::binary);
	std::stringstream bytes;
	bytes << in.rdbuf();
	return bytes.str();
}

double rms(const std::vector<float>& samples, std::size_t from, std::size_t to)
{
	double sum = 0.0;
	for (std::size_t i = from; i < to; ++i)
		sum += static_cast<double>(samples[i]) * samples[i];
	return to > from ? std::sqrt(sum / static_cast<double>(to - from)) : 0.0;
}

} // namespace velora_test
