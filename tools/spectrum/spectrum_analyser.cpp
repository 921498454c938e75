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
	const double rate = source.sampleRate();
	const std::int64_t total = source.frames();
	const auto toFrame = [&](double s) {
		return s * rate >= static_cast<double>(total)
		           ? total
		           : static_cast<std::int64_t>(std::llround(s * rate));
	};
	const std::int64_t start = toFrame(options.fromSeconds);
	const std::int64_t end = toFrame(options.toSeconds);
	if (start >= end)
		throw SpectrumFailure("cannot analyse '" + source.name() + "': it is " +
		                      seconds(static_cast<double>(total) / rate) + " long, nothing from " +
		                      seconds(options.fromSeconds) + " on");
	source.seek(start);

	const int n = options.fftSize;
	const int hop = n / 2;
	const int channels = source.channels();
	const auto stride = static_cast<std::size_t>(channels);
	PowerAverager averager(n, channels);
	// One frame of all channels. A part shorter than a frame is analysed as
	// one frame padded with zeros (its level then reads low by the padding).
	std::vector<float> frame(static_cast<std::size_t>(n) * stride, 0.0f);
	const int first =
	    source.read(frame.data(), static_cast<int>(std::min<std::int64_t>(n, end - start)));
	if (first == 0)
		throw SpectrumFailure("cannot analyse '" + source.name() + "': it holds no samples");
	averager.add(frame.data());
	// Then one frame every hop while a whole hop of the part remains.
	for (std::int64_t next = start + n; next + hop <= end; next += hop)
	{
		std::memmove(frame.data(), frame.data() + hop * stride, hop * stride * sizeof(float));
		if (source.read(frame.data() + hop * stride, hop) < hop)
			break; // the file ends before its header said
		averager.add(frame.data());
	}

	if (!averager.finite())
		throw SpectrumFailure("cannot analyse '" + source.name() +
		                      "': it holds samples that are not finite numbers");

	std::vector<ChannelSpectrum> spectra(stride);
	for (int c = 0; c < channels; ++c)
	{
		ChannelSpectrum& s = spectra[static_cast<std::size_t>(c)];
		s.label = channelLabel(source.label(), c, channels);
		s.sampleRate = rate;
		s.fftSize = n;
		s.levelDb = averager.levelsDb(c);
	}
	return spectra;
}

} // namespace velora_spectrum
