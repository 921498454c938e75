// Samples already in memory (interleaved, not copied) as a sample source.
#pragma once

#include "sample_source.h"

namespace velora_spectrum {

class MemorySource : public SampleSource
{
public:
	MemorySource(const float* interleaved, std::int64_t frames, int channels, double sampleRate,
	             std::string name);

	std::string name() const override { return sourceName; }
	std::string label() const override { return sourceName; }
	int channels() const override { return channelCount; }
	double sampleRate() const override { return rate; }
	std::int64_t frames() const override { return frameCount; }
	void seek(std::int64_t frame) override { position = frame; }
	int read(float* interleaved, int count) override;

private:
	const float* samples;
	std::int64_t frameCount;
	int channelCount;
	double rate;
	std::string sourceName;
	std::int64_t position = 0;
};

} // namespace velora_spectrum
