#include "audio_file.h"

#include "failure.h"

#include <algorithm>
#include <filesystem>

namespace velora_render {
namespace {

std::string formatName(int format, int command)
{
	SF_FORMAT_INFO info = {};
	info.format = format;
	if (sf_command(nullptr, command, &info, sizeof info) != 0 || !info.name)
		return "unknown";
	return info.name;
}

bool isIntegerSubtype(int subtype)
{
	return subtype == SF_FORMAT_PCM_16 || subtype == SF_FORMAT_PCM_24 ||
	       subtype == SF_FORMAT_PCM_32;
}

} // namespace

InputFile::InputFile(const std::string& p) : path(p)
{
	std::error_code error;
	if (std::filesystem::is_directory(path, error))
		throw runtimeError("cannot read input '" + path + "': it is a directory");
	file = sf_open(path.c_str(), SFM_READ, &info);
	if (!file)
		throw runtimeError("cannot read input '" + path + "': " + sf_strerror(nullptr));
	if (info.channels < 1 || info.samplerate < 1)
	{
		sf_close(file);
		throw runtimeError("cannot read input '" + path + "': no audio channels");
	}
	// libsndfile converts 16-bit samples through a small buffer, a system
	// call per few thousand frames; read as stored they come in one call, and
	// the scale here is its own (exact: a power of two).
	const int major = info.format & SF_FORMAT_TYPEMASK;
	plainShorts = (info.format & SF_FORMAT_SUBMASK) == SF_FORMAT_PCM_16 &&
	              major != SF_FORMAT_FLAC && major != SF_FORMAT_OGG;
}

InputFile::~InputFile()
{
	sf_close(file);
}

namespace {

sf_count_t readFrames(SNDFILE* file, short* frames, int count)
{
	return sf_readf_short(file, frames, count);
}

sf_count_t readFrames(SNDFILE* file, float* frames, int count)
{
	return sf_readf_float(file, frames, count);
}

} // namespace

template <typename Sample>
sf_count_t InputFile::readMixed(std::vector<Sample>& frames, float scale, float* mono, int count)
{
	const int channels = info.channels;
	frames.resize(static_cast<std::size_t>(count) * static_cast<std::size_t>(channels));
	const sf_count_t got = readFrames(file, frames.data(), count);
	const Sample* in = frames.data();
	if (channels == 1)
		for (sf_count_t i = 0; i < got; ++i)
			mono[i] = static_cast<float>(in[i]) * scale;
	else
		for (sf_count_t i = 0; i < got; ++i, in += channels)
		{
			// The plain average of the channels: a mix that cannot clip.
			float sum = 0.0f;
			for (int c = 0; c < channels; ++c)
				sum += static_cast<float>(in[c]) * scale;
			mono[i] = sum / static_cast<float>(channels);
		}
	return got;
}

int InputFile::read(float* mono, int count)
{
	sf_count_t got = 0;
	if (plainShorts)
		got = readMixed(shortFrames, 1.0f / 32768.0f, mono, count);
	else if (info.channels == 1)
		got = sf_readf_float(file, mono, count);
	else
		got = readMixed(floatFrames, 1.0f, mono, count);
	if (sf_error(file) != SF_ERR_NO_ERROR)
		throw runtimeError("cannot read input '" + path + "': " + sf_strerror(file));
	return static_cast<int>(got);
}

std::string InputFile::description() const
{
	std::string text = path + " (" +
	                   formatName(info.format & SF_FORMAT_TYPEMASK, SFC_GET_FORMAT_INFO) + ", " +
	                   formatName(info.format & SF_FORMAT_SUBMASK, SFC_GET_FORMAT_INFO);
	if (info.channels > 1)
		text += ", " + std::to_string(info.channels) + " channels mixed to mono";
	return text + ")";
}

OutputFile::OutputFile(const std::string& path, const OutputFormat& format, double sampleRate)
: pending(path, "output")
{
	SF_INFO info = {};
	info.samplerate = static_cast<int>(sampleRate);
	info.channels = 2;
	info.format = format.sndfileFormat;
	file = sf_open_fd(pending.descriptor(), SFM_WRITE, &info, SF_FALSE);
	if (!file)
		throw runtimeError("cannot write output '" + path + "' as " + format.description + ": " +
		                   sf_strerror(nullptr));
	integerSamples = isIntegerSubtype(format.sndfileFormat & SF_FORMAT_SUBMASK);
	// Integer samples saturate at full scale instead of wrapping round.
	sf_command(file, SFC_SET_CLIPPING, nullptr, SF_TRUE);
	// No PEAK chunk: it carries the time of writing, and the same render must
	// give the same bytes.
	sf_command(file, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
}

OutputFile::~OutputFile()
{
	if (file)
		sf_close(file);
}

void OutputFile::write(const float* stereo, int frames)
{
	if (sf_writef_float(file, stereo, frames) != frames)
		fail();
}

void OutputFile::commit()
{
	SNDFILE* closing = file;
	file = nullptr;
	if (sf_close(closing) != 0)
		fail();
	pending.commit();
}

void OutputFile::fail() const
{
	throw runtimeError("cannot write output '" + pending.target() + "': " + sf_strerror(file));
}

} // namespace velora_render
