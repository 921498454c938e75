// The output file's format: the container from the file name's extension,
// the sample encoding from --encoding or the container's natural choice.
#pragma once

#include <cstdint>
#include <string>

namespace velora_render {

enum class Encoding
{
	automatic, // 32-bit float where the container holds it, else its usual encoding
	float32,
	pcm16,
	pcm24,
	pcm32,
};

// Parses an --encoding value; throws a usage failure for an unknown name.
Encoding parseEncoding(const std::string& name);

struct OutputFormat
{
	int sndfileFormat = 0;   // libsndfile's major format | subtype
	std::string description; // e.g. "WAV, 32-bit float"
};

// The format for writing a stereo file at `path`: a usage failure for an
// extension that names no format this tool writes, or an encoding the
// container cannot hold. A name without an extension gets WAV.
OutputFormat outputFormatFor(const std::string& path, Encoding encoding);

// Whether the name's extension is one of the containers above (which
// libsndfile also reads): the audio files a folder's batch takes.
bool hasAudioExtension(const std::string& path);

// The format for `frames` stereo frames: WAV that would pass its 4 GiB limit
// becomes RF64 (WAV's 64-bit successor, which libsndfile and most editors
// read); AIFF and AU that would pass theirs are a runtime failure.
OutputFormat formatForLength(const OutputFormat& format, std::int64_t frames);

} // namespace velora_render
