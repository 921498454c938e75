// An audio file read through libsndfile as a sample source, a block at a time.
#pragma once

#include "sample_source.h"

#include <sndfile.h>

#include <memory>

namespace velora_spectrum {

class SoundFileSource : public SampleSource
{
public:
	// Opens the file; a failure says why it cannot be read.
	explicit SoundFileSource(const std::string& path);

	std::string name() const override { return path; }
	std::string label() const override { return fileName; }
	int channels() const override { return info.channels; }
	double sampleRate() const override { return info.samplerate; }
	std::int64_t frames() const override { return info.frames; }
	void seek(std::int64_t frame) override;
	int read(float* interleaved, int count) override;

private:
	[[noreturn]] void fail(const std::string& reason) const;

	struct Closer
	{
		void operator()(SNDFILE* f) const { sf_close(f); }
	};

	std::string path;
	std::string fileName;
	SF_INFO info = {};
	// Closed also when the constructor gives up on the file after opening it.
	std::unique_ptr<SNDFILE, Closer> file;
};

} // namespace velora_spectrum
