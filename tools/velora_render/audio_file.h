// Audio files through libsndfile: the input, read and mixed to mono a chunk
// at a time, and the stereo output, written to a pending file that takes the
// target's name only when it is complete.
#pragma once

#include "audio_source.h"
#include "output_format.h"
#include "pending_file.h"

#include <sndfile.h>

#include <memory>
#include <string>
#include <vector>

namespace velora_render {

class InputFile : public AudioSource
{
public:
	// Opens the file; a runtime failure says why it cannot be read.
	explicit InputFile(const std::string& path);
	~InputFile() override;
	InputFile(const InputFile&) = delete;
	InputFile& operator=(const InputFile&) = delete;

	int channels() const { return info.channels; }

	double sampleRate() const override { return info.samplerate; }
	std::int64_t frames() const override { return info.frames; }
	int read(float* mono, int count) override;
	std::string description() const override;

private:
	template <typename Sample>
	sf_count_t readMixed(std::vector<Sample>& frames, float scale, float* mono, int count);

	std::string path;
	SF_INFO info = {};
	SNDFILE* file = nullptr;
	bool plainShorts = false;       // 16-bit PCM: read as stored, scaled here
	std::vector<short> shortFrames; // one read of all channels
	std::vector<float> floatFrames;
};

class OutputFile
{
public:
	OutputFile(const std::string& path, const OutputFormat& format, double sampleRate);
	~OutputFile();
	OutputFile(const OutputFile&) = delete;
	OutputFile& operator=(const OutputFile&) = delete;

	// Writes `frames` frames of interleaved left and right samples.
	void write(const float* stereo, int frames);
	// Completes the file and moves it into place.
	void commit();

	bool holdsIntegers() const { return integerSamples; }

private:
	[[noreturn]] void fail() const;

	PendingFile pending;
	SNDFILE* file = nullptr;
	bool integerSamples = false;
};

} // namespace velora_render
