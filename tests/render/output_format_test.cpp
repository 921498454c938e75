// Output formats: the container from the extension, the encoding from
// --encoding, and the switch to RF64 where WAV's 4 GiB would not hold a render.
#include "failure.h"
#include "output_format.h"

#include <gtest/gtest.h>

#include <sndfile.h>

namespace velora_test {
namespace {

using namespace velora_render;

int formatOf(const std::string& path, Encoding encoding = Encoding::automatic)
{
	return outputFormatFor(path, encoding).sndfileFormat;
}

int usageStatusOf(const std::string& path, Encoding encoding = Encoding::automatic)
{
	try
	{
		outputFormatFor(path, encoding);
	}
	catch (const Failure& failure)
	{
		return failure.status();
	}
	return 0;
}

TEST(OutputFormat, ExtensionPicksTheContainerAndItsNaturalEncoding)
{
	EXPECT_EQ(formatOf("a.wav"), SF_FORMAT_WAV | SF_FORMAT_FLOAT);
	EXPECT_EQ(formatOf("dir.v2/a.Wav"), SF_FORMAT_WAV | SF_FORMAT_FLOAT);
	EXPECT_EQ(formatOf("dir.v2/noextension"), SF_FORMAT_WAV | SF_FORMAT_FLOAT);
	EXPECT_EQ(formatOf(".hidden"), SF_FORMAT_WAV | SF_FORMAT_FLOAT);
	EXPECT_EQ(formatOf("a.aif"), SF_FORMAT_AIFF | SF_FORMAT_FLOAT);
	EXPECT_EQ(formatOf("a.caf"), SF_FORMAT_CAF | SF_FORMAT_FLOAT);
	EXPECT_EQ(formatOf("a.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_24);
	EXPECT_EQ(formatOf("a.ogg"), SF_FORMAT_OGG | SF_FORMAT_VORBIS);
	EXPECT_EQ(formatOf("a.opus"), SF_FORMAT_OGG | SF_FORMAT_OPUS);
	EXPECT_EQ(formatOf("a.flac", Encoding::pcm16), SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
	EXPECT_EQ(formatOf("a.wav", Encoding::pcm24), SF_FORMAT_WAV | SF_FORMAT_PCM_24);
	EXPECT_EQ(outputFormatFor("a.w64", Encoding::pcm32).description, "Wave64, 32-bit PCM");
}

TEST(OutputFormat, UnknownExtensionsAndImpossibleEncodingsAreUsageErrors)
{
	EXPECT_EQ(usageStatusOf("a.mp4"), kExitUsage);
	EXPECT_EQ(usageStatusOf("a.wav.txt"), kExitUsage);
	EXPECT_EQ(usageStatusOf("a.flac", Encoding::float32), kExitUsage);
	EXPECT_EQ(usageStatusOf("a.ogg", Encoding::pcm16), kExitUsage);
	EXPECT_THROW(parseEncoding("pcm8"), Failure);
	EXPECT_EQ(parseEncoding("pcm24"), Encoding::pcm24);
}

TEST(OutputFormat, RendersPastFourGibibytesLeaveWavForRf64)
{
	const OutputFormat wav = outputFormatFor("long.wav", Encoding::automatic);
	// Stereo 32-bit float: 8 bytes a frame; an hour at 96 kHz still fits.
	const std::int64_t hourAt96k = 3600LL * 96000;
	EXPECT_EQ(formatForLength(wav, hourAt96k).sndfileFormat, wav.sndfileFormat);
	const OutputFormat longer = formatForLength(wav, 2 * hourAt96k);
	EXPECT_EQ(longer.sndfileFormat, SF_FORMAT_RF64 | SF_FORMAT_FLOAT);
	EXPECT_EQ(longer.description, "RF64, 32-bit float, too long for WAV");
	// 16-bit samples take half the room.
	const OutputFormat wav16 = outputFormatFor("long.wav", Encoding::pcm16);
	EXPECT_EQ(formatForLength(wav16, 2 * hourAt96k).sndfileFormat, wav16.sndfileFormat);

	const OutputFormat aiff = outputFormatFor("long.aiff", Encoding::automatic);
	EXPECT_THROW(formatForLength(aiff, 2 * hourAt96k), Failure);
	// Formats without the limit stay as they are.
	const OutputFormat flac = outputFormatFor("long.flac", Encoding::automatic);
	EXPECT_EQ(formatForLength(flac, 100 * hourAt96k).sndfileFormat, flac.sndfileFormat);
	const OutputFormat caf = outputFormatFor("long.caf", Encoding::automatic);
	EXPECT_EQ(formatForLength(caf, 100 * hourAt96k).sndfileFormat, caf.sndfileFormat);
}

} // namespace
} // namespace velora_test
