// Where the mono signal for the plug-in's input comes from: a file or the
// built-in test signal, read block by block.
#pragma once

#include <cstdint>
#include <string>

namespace velora_render {

class AudioSource
{
public:
	virtual ~AudioSource() = default;

	virtual double sampleRate() const = 0;
	// Total length in frames.
	virtual std::int64_t frames() const = 0;
	// Fills `mono` with up to `count` frames; returns how many, 0 at the end.
	// A read error is a runtime failure.
	virtual int read(float* mono, int count) = 0;
	// For the report: what the source is.
	virtual std::string description() const = 0;
};

} // namespace velora_render
