#include "audio_file.h"

#include "failure.h"

#include <algorithm>
#include <filesystem>

namespace velora_render {
namespace {

constexpr int kChunkFrames = 4096;

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
	if (info.channels > 1)
		interleaved.resize(static_cast<std::size_t>(kChunkFrames) * info.channels);
}

InputFile::~InputFile()
{
	sf_close(file);
}

int InputFile::read(float* mono, int count)
{
	const int channels = info.channels;
	int done = 0;
	while (done < count)
	{
		const int want = std::min(count - done, kChunkFrames);
		float* target = channels == 1 ? mono + done : interleaved.data();
		const sf_count_t got = sf_readf_float(file, target, want);
		if (sf_error(file) != SF_ERR_NO_ERROR)
			throw runtimeError("cannot read input '" + path + "': " + sf_strerror(file));
		if (channels > 1)
			for (sf_count_t i = 0; i < got; ++i)
			{
				// The plain average of the channels: a mix that cannot clip.
				float sum = 0.0f;
				for (int c = 0; c < channels; ++c)
					sum += interleaved[static_cast<std::size_t>(i * channels + c)];
				mono[done + i] = sum / static_cast<float>(channels);
			}
		done += static_cast<int>(got);
		if (got < want)
			break;
	}
	return done;
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
: pending(path, "output"),
  interleaved(2 * static_cast<std::size_t>(kChunkFrames))
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

void OutputFile::write(const float* left, const float* right, int frames)
{
	for (int done = 0; done < frames;)
	{
		const int n = std::min(frames - done, kChunkFrames);
		for (int i = 0; i < n; ++i)
		{
			interleaved[2 * static_cast<std::size_t>(i)] = left[done + i];
			interleaved[2 * static_cast<std::size_t>(i) + 1] = right[done + i];
		}
		if (sf_writef_float(file, interleaved.data(), n) != n)
			fail();
		done += n;
	}
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
