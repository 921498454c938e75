#include "spectrum_analyser.h"

#include "memory_source.h"
#include "power_averager.h"
#include "sound_file_source.h"
#include "spectrum_failure.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <sstream>

namespace velora_spectrum {
namespace {

bool isPowerOfTwo(int n)
{
	return n > 0 && (n & (n - 1)) == 0;
}

std::string seconds(double s)
{
	std::ostringstream text;
	text << s << " s";
	return text.str();
}

std::string channelLabel(const std::string& name, int channel, int channels)
{
	if (channels == 1)
		return name;
	if (channels == 2)
		return name + (channel == 0 ? ", left" : ", right");
	return name + ", channel " + std::to_string(channel + 1);
}

// The frames [start, end) of the source that the options select.
struct Part
{
	std::int64_t start = 0;
	std::int64_t end = 0;
};

Part partOf(const SampleSource& source, const SpectrumOptions& options)
{
	const double rate = source.sampleRate();
	const std::int64_t total = source.frames();
	const auto toFrame = [&](double s) {
		return s * rate >= static_cast<double>(total)
		           ? total
		           : static_cast<std::int64_t>(std::llround(s * rate));
	};
	const Part part{toFrame(options.fromSeconds), toFrame(options.toSeconds)};
	if (part.start >= total)
		throw SpectrumFailure("cannot analyse '" + source.name() + "': it is " +
		                      seconds(static_cast<double>(total) / rate) + " long, nothing from " +
		                      seconds(options.fromSeconds) + " on");
	if (part.start >= part.end)
		throw SpectrumFailure("cannot analyse '" + source.name() + "': no sample lies from " +
		                      seconds(options.fromSeconds) + " to " + seconds(options.toSeconds));
	return part;
}

// Reads the part half a frame at a time and adds every whole frame, starting
// at the part's start. A part shorter than a frame is analysed as one frame
// padded with zeros (its levels then read low by the share of the padding).
void averageFrames(SampleSource& source, const Part& part, PowerAverager& averager)
{
	const int n = averager.fftSize();
	const int hop = n / 2;
	const auto stride = static_cast<std::size_t>(source.channels());
	std::vector<float> frame(static_cast<std::size_t>(n) * stride, 0.0f);
	if (source.read(frame.data(),
	                static_cast<int>(std::min<std::int64_t>(n, part.end - part.start))) == 0)
		throw SpectrumFailure("cannot analyse '" + source.name() + "': it holds no samples");
	averager.add(frame.data());
	for (std::int64_t next = part.start + n; next + hop <= part.end; next += hop)
	{
		std::memmove(frame.data(), frame.data() + hop * stride, hop * stride * sizeof(float));
		if (source.read(frame.data() + hop * stride, hop) < hop)
			break; // the file ends before its header said
		averager.add(frame.data());
	}
}

} // namespace

SpectrumAnalyser::SpectrumAnalyser(const SpectrumOptions& o) : options(o)
{
	if (!isPowerOfTwo(options.fftSize) || options.fftSize < SpectrumOptions::kMinFftSize ||
	    options.fftSize > SpectrumOptions::kMaxFftSize)
		throw SpectrumFailure("FFT size " + std::to_string(options.fftSize) +
		                      " is not a power of two from " +
		                      std::to_string(SpectrumOptions::kMinFftSize) + " to " +
		                      std::to_string(SpectrumOptions::kMaxFftSize));
	if (!(options.fromSeconds >= 0.0) || !(options.toSeconds > options.fromSeconds))
		throw SpectrumFailure("the part from " + seconds(options.fromSeconds) + " to " +
		                      seconds(options.toSeconds) + " is not a stretch of time");
}

std::vector<ChannelSpectrum> SpectrumAnalyser::analyse(const std::string& path) const
{
	SoundFileSource source(path);
	return analyse(source);
}

std::vector<ChannelSpectrum> SpectrumAnalyser::analyse(const float* interleaved,
                                                       std::int64_t frames, int channels,
                                                       double sampleRate,
                                                       const std::string& name) const
{
	if (channels < 1 || !(sampleRate > 0.0) || frames < 1 || !interleaved)
		throw SpectrumFailure("cannot analyse '" + name + "': no samples");
	MemorySource source(interleaved, frames, channels, sampleRate, name);
	return analyse(source);
}

std::vector<ChannelSpectrum> SpectrumAnalyser::analyse(SampleSource& source) const
{
	const Part part = partOf(source, options);
	if (part.start > 0)
		source.seek(part.start);
	PowerAverager averager(options.fftSize, source.channels());
	averageFrames(source, part, averager);
	if (!averager.finite())
		throw SpectrumFailure("cannot analyse '" + source.name() +
		                      "': it holds samples that are not finite numbers");

	std::vector<ChannelSpectrum> spectra(static_cast<std::size_t>(source.channels()));
	for (int c = 0; c < source.channels(); ++c)
	{
		ChannelSpectrum& s = spectra[static_cast<std::size_t>(c)];
		s.label = channelLabel(source.label(), c, source.channels());
		s.sampleRate = source.sampleRate();
		s.fftSize = options.fftSize;
		s.levelDb = averager.levelsDb(c);
	}
	return spectra;
}

} // namespace velora_spectrum
