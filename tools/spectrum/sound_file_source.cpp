#include "sound_file_source.h"

#include "spectrum_failure.h"

#include <algorithm>
#include <filesystem>

namespace velora_spectrum {
namespace {

// More channels than any recording has: a header that claims more is not
// believed, since every channel costs a transform buffer.
constexpr int kMaxChannels = 64;

// libsndfile's messages can run over lines; a failure is one line.
std::string oneLine(std::string text)
{
	std::replace(text.begin(), text.end(), '\n', ' ');
	return text;
}

} // namespace

SoundFileSource::SoundFileSource(const std::string& p)
: path(p),
  fileName(std::filesystem::path(p).filename().string())
{
	std::error_code error;
	if (std::filesystem::is_directory(path, error))
		fail("it is a directory");
	file.reset(sf_open(path.c_str(), SFM_READ, &info));
	if (!file)
		fail(sf_strerror(nullptr));
	if (info.channels < 1 || info.samplerate < 1)
		fail("no audio channels");
	if (info.channels > kMaxChannels)
		fail(std::to_string(info.channels) + " channels, more than the " +
		     std::to_string(kMaxChannels) + " analysed");
	if (info.frames <= 0)
		fail("it holds no samples");
}

void SoundFileSource::seek(std::int64_t frame)
{
	if (sf_seek(file.get(), frame, SEEK_SET) != frame)
		fail(sf_strerror(file.get()));
}

int SoundFileSource::read(float* interleaved, int count)
{
	const sf_count_t got = sf_readf_float(file.get(), interleaved, count);
	if (sf_error(file.get()) != SF_ERR_NO_ERROR)
		fail(sf_strerror(file.get()));
	return static_cast<int>(got);
}

void SoundFileSource::fail(const std::string& reason) const
{
	throw SpectrumFailure("cannot analyse '" + path + "': " + oneLine(reason));
}

} // namespace velora_spectrum
