// Output formats: the container from the extension, the encoding from
// --encoding, and the switch to RF64 where WAV's 4 GiB would not hold a render.
#include "failure.h"
#include "output_format.h"

#include <gtest/gtest.h>

#include <sndfile.h>

namespace velora_test {
namespace {

using namespace velora_render;

constexpr int kRefused = -1;

// The format for `path` (and `frames`, when given), or kRefused.
int formatOf(const std::string& path, Encoding encoding, std::int64_t frames = 0)
{
	try
	{
		const OutputFormat named = outputFormatFor(path, encoding);
		return frames > 0 ? formatForLength(named, frames).sndfileFormat : named.sndfileFormat;
	}
	catch (const Failure&)
	{
		return kRefused;
	}
}

TEST(OutputFormat, ExtensionEncodingAndLengthPickTheFormat)
{
	const auto automatic = Encoding::automatic;
	// Stereo 32-bit float is 8 bytes a frame: an hour at 96 kHz fits in WAV,
	// two do not; 16-bit samples take half the room.
	const std::int64_t hour = 3600LL * 96000;
	const struct
	{
		const char* path;
		Encoding encoding;
		std::int64_t frames;
		int format;
	} cases[] = {
	    {"a.wav", automatic, 0, SF_FORMAT_WAV | SF_FORMAT_FLOAT},
	    {"dir.v2/a.Wav", automatic, 0, SF_FORMAT_WAV | SF_FORMAT_FLOAT},
	    {"dir.v2/noextension", automatic, 0, SF_FORMAT_WAV | SF_FORMAT_FLOAT},
	    {".hidden", automatic, 0, SF_FORMAT_WAV | SF_FORMAT_FLOAT},
	    {"a.aif", automatic, 0, SF_FORMAT_AIFF | SF_FORMAT_FLOAT},
	    {"a.flac", automatic, 0, SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
	    {"a.opus", automatic, 0, SF_FORMAT_OGG | SF_FORMAT_OPUS},
	    {"a.flac", Encoding::pcm16, 0, SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
	    {"a.wav", Encoding::pcm24, 0, SF_FORMAT_WAV | SF_FORMAT_PCM_24},
	    {"a.mp4", automatic, 0, kRefused},
	    {"a.wav.txt", automatic, 0, kRefused},
	    {"a.flac", Encoding::float32, 0, kRefused},
	    {"a.ogg", Encoding::pcm16, 0, kRefused},
	    {"long.wav", automatic, hour, SF_FORMAT_WAV | SF_FORMAT_FLOAT},
	    {"long.wav", automatic, 2 * hour, SF_FORMAT_RF64 | SF_FORMAT_FLOAT},
	    {"long.wav", Encoding::pcm16, 2 * hour, SF_FORMAT_WAV | SF_FORMAT_PCM_16},
	    {"long.aiff", automatic, 2 * hour, kRefused},
	    {"long.flac", automatic, 100 * hour, SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
	    {"long.caf", automatic, 100 * hour, SF_FORMAT_CAF | SF_FORMAT_FLOAT},
	};
	for (const auto& c : cases)
		EXPECT_EQ(formatOf(c.path, c.encoding, c.frames), c.format) << c.path << " " << c.frames;
	EXPECT_EQ(formatForLength(outputFormatFor("a.wav", automatic), 2 * hour).description,
	          "RF64, 32-bit float, too long for WAV");
}

} // namespace
} // namespace velora_test
