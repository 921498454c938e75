// The SDK's memory stream, holding a copy of some bytes.
#pragma once

#include "public.sdk/source/common/memorystream.h"

#include <cstdint>
#include <vector>

namespace velora_test {

inline Steinberg::IPtr<Steinberg::MemoryStream> streamOf(const std::vector<uint8_t>& bytes,
                                                         int64_t position = 0)
{
	auto stream = Steinberg::owned(new Steinberg::MemoryStream);
	Steinberg::int32 written = 0;
	if (!bytes.empty())
		stream->write(const_cast<uint8_t*>(bytes.data()),
		              static_cast<Steinberg::int32>(bytes.size()), &written);
	stream->seek(position, Steinberg::IBStream::kIBSeekSet, nullptr);
	return stream;
}

inline std::vector<uint8_t> bytesOf(Steinberg::MemoryStream& stream)
{
	const auto* begin = reinterpret_cast<const uint8_t*>(stream.getData());
	return std::vector<uint8_t>(begin, begin + stream.getSize());
}

} // namespace velora_test
