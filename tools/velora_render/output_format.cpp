#include "output_format.h"

#include "failure.h"

#include <sndfile.h>

#include <algorithm>
#include <cctype>

namespace velora_render {
namespace {

struct Container
{
	const char* extension;
	int major;
	int naturalSubtype; // used when the encoding is automatic
	const char* name;
};

constexpr Container kContainers[] = {
    {"wav", SF_FORMAT_WAV, SF_FORMAT_FLOAT, "WAV"},
    {"wave", SF_FORMAT_WAV, SF_FORMAT_FLOAT, "WAV"},
    {"rf64", SF_FORMAT_RF64, SF_FORMAT_FLOAT, "RF64"},
    {"w64", SF_FORMAT_W64, SF_FORMAT_FLOAT, "Wave64"},
    {"aiff", SF_FORMAT_AIFF, SF_FORMAT_FLOAT, "AIFF"},
    {"aif", SF_FORMAT_AIFF, SF_FORMAT_FLOAT, "AIFF"},
    {"caf", SF_FORMAT_CAF, SF_FORMAT_FLOAT, "CAF"},
    {"au", SF_FORMAT_AU, SF_FORMAT_FLOAT, "AU"},
    {"flac", SF_FORMAT_FLAC, SF_FORMAT_PCM_24, "FLAC"},
    {"ogg", SF_FORMAT_OGG, SF_FORMAT_VORBIS, "Ogg"},
    {"oga", SF_FORMAT_OGG, SF_FORMAT_VORBIS, "Ogg"},
    {"opus", SF_FORMAT_OGG, SF_FORMAT_OPUS, "Ogg"},
    {"mp3", SF_FORMAT_MPEG, SF_FORMAT_MPEG_LAYER_III, "MP3"},
};

struct EncodingName
{
	const char* name;
	Encoding encoding;
	int subtype;
	const char* description;
};

constexpr EncodingName kEncodings[] = {
    {"float", Encoding::float32, SF_FORMAT_FLOAT, "32-bit float"},
    {"pcm16", Encoding::pcm16, SF_FORMAT_PCM_16, "16-bit PCM"},
    {"pcm24", Encoding::pcm24, SF_FORMAT_PCM_24, "24-bit PCM"},
    {"pcm32", Encoding::pcm32, SF_FORMAT_PCM_32, "32-bit PCM"},
};

std::string lowerExtension(const std::string& path)
{
	const auto slash = path.find_last_of('/');
	const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
	const auto dot = name.find_last_of('.');
	if (dot == std::string::npos || dot == 0)
		return {};
	std::string extension = name.substr(dot + 1);
	std::transform(extension.begin(), extension.end(), extension.begin(),
	               [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
	return extension;
}

const char* subtypeDescription(int subtype)
{
	for (const auto& e : kEncodings)
		if (e.subtype == subtype)
			return e.description;
	switch (subtype)
	{
	case SF_FORMAT_VORBIS:
		return "Vorbis";
	case SF_FORMAT_OPUS:
		return "Opus";
	default:
		return "MPEG layer III";
	}
}

// Bytes per sample of the uncompressed encodings, 0 for the others.
int bytesPerSample(int subtype)
{
	switch (subtype)
	{
	case SF_FORMAT_PCM_16:
		return 2;
	case SF_FORMAT_PCM_24:
		return 3;
	case SF_FORMAT_FLOAT:
	case SF_FORMAT_PCM_32:
		return 4;
	default:
		return 0;
	}
}

// The extensions above, for messages.
std::string knownOutputExtensions()
{
	std::string list;
	for (const auto& c : kContainers)
		list += (list.empty() ? "" : ", ") + std::string(c.extension);
	return list;
}

bool canWrite(int format)
{
	SF_INFO info{};
	info.samplerate = 48000;
	info.channels = 2;
	info.format = format;
	return sf_format_check(&info) == SF_TRUE;
}

} // namespace

Encoding parseEncoding(const std::string& name)
{
	for (const auto& e : kEncodings)
		if (name == e.name)
			return e.encoding;
	throw usageError("--encoding: unknown encoding '" + name +
	                 "' (choose float, pcm16, pcm24 or pcm32)");
}

bool hasAudioExtension(const std::string& path)
{
	const std::string extension = lowerExtension(path);
	return std::any_of(std::begin(kContainers), std::end(kContainers),
	                   [&](const Container& c) { return extension == c.extension; });
}

OutputFormat outputFormatFor(const std::string& path, Encoding encoding)
{
	std::string extension = lowerExtension(path);
	if (extension.empty())
		extension = "wav";
	const auto container =
	    std::find_if(std::begin(kContainers), std::end(kContainers),
	                 [&](const Container& c) { return extension == c.extension; });
	if (container == std::end(kContainers))
		throw usageError("cannot tell the output format from '." + extension + "' in '" + path +
		                 "' (known: " + knownOutputExtensions() + ")");

	int subtype = container->naturalSubtype;
	std::string encodingName = "default";
	for (const auto& e : kEncodings)
		if (e.encoding == encoding)
		{
			subtype = e.subtype;
			encodingName = e.name;
		}
	const int format = container->major | subtype;
	if (!canWrite(format))
	{
		if (encoding == Encoding::automatic)
			throw usageError(std::string("this libsndfile cannot write .") + extension + " files");
		throw usageError("--encoding " + encodingName + " is not available for ." + extension +
		                 " files");
	}
	return {format, std::string(container->name) + ", " + subtypeDescription(subtype)};
}

OutputFormat formatForLength(const OutputFormat& format, std::int64_t frames)
{
	const int major = format.sndfileFormat & SF_FORMAT_TYPEMASK;
	const int subtype = format.sndfileFormat & SF_FORMAT_SUBMASK;
	const int bytes = bytesPerSample(subtype);
	// Room for the header and trailing chunks within 32-bit chunk sizes.
	constexpr std::int64_t kLimit = 0xFFFFFFFFLL - 65536;
	if (bytes == 0 || frames <= kLimit / (2 * bytes))
		return format;
	if (major == SF_FORMAT_WAV)
		return {SF_FORMAT_RF64 | subtype,
		        std::string("RF64, ") + subtypeDescription(subtype) + ", too long for WAV"};
	if (major == SF_FORMAT_AIFF || major == SF_FORMAT_AU)
		throw runtimeError("the output would pass the 4 GiB limit of its format; write .caf, "
		                   ".w64 or .rf64 instead");
	return format;
}

} // namespace velora_render
