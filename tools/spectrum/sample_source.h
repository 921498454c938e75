// Interleaved float samples read front to back, from a file or from memory.
#pragma once

#include <cstdint>
#include <string>

namespace velora_spectrum {

class SampleSource
{
public:
	virtual ~SampleSource() = default;

	// Names the source in failures, e.g. "takes/tone.wav".
	virtual std::string name() const = 0;
	// Names it in labels, e.g. "tone.wav".
	virtual std::string label() const = 0;
	virtual int channels() const = 0;
	virtual double sampleRate() const = 0;
	virtual std::int64_t frames() const = 0;
	// Moves to `frame` (0 <= frame < frames()).
	virtual void seek(std::int64_t frame) = 0;
	// Reads up to `count` frames into `interleaved`; fewer only at the end.
	virtual int read(float* interleaved, int count) = 0;
};

} // namespace velora_spectrum
