// The built-in demo material: pulses of a tone with harmonics alternating with
// bursts of band-limited noise, where a moving pan is easy to follow by ear.
#pragma once

#include "audio_source.h"

#include <cstdint>

namespace velora_render {

class TestSignal : public AudioSource
{
public:
	static constexpr double kSampleRate = 48000.0;
	static constexpr double kSeconds = 6.0;

	TestSignal();

	double sampleRate() const override { return kSampleRate; }
	std::int64_t frames() const override { return length; }
	int read(float* mono, int count) override;
	std::string description() const override;

private:
	double next();
	double noise();

	std::int64_t length;
	std::int64_t position = 0;
	std::uint32_t random = 0x9E3779B9u; // xorshift state: the same signal every run
	double highPassIn = 0.0, highPassOut = 0.0, lowPass1 = 0.0, lowPass2 = 0.0;
};

} // namespace velora_render
