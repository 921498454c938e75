#include "memory_source.h"

#include <algorithm>
#include <cstring>

namespace velora_spectrum {

MemorySource::MemorySource(const float* interleaved, std::int64_t frames, int channels,
                           double sampleRate, std::string name)
: samples(interleaved),
  frameCount(frames),
  channelCount(channels),
  rate(sampleRate),
  sourceName(std::move(name))
{}

int MemorySource::read(float* interleaved, int count)
{
	const auto n = static_cast<int>(std::min<std::int64_t>(count, frameCount - position));
	std::memcpy(interleaved, samples + position * channelCount,
	            sizeof(float) * static_cast<std::size_t>(n) *
	                static_cast<std::size_t>(channelCount));
	position += n;
	return n;
}

} // namespace velora_spectrum
