#include "persist/vstfilestream.h"

#include <algorithm>
#include <limits>

using namespace Steinberg;

namespace {
// IBStream transfers at most int32 bytes per call.
constexpr size_t kMaxTransfer = std::numeric_limits<int32>::max();
} // namespace

bool VstFileStream::readBytes(void* data, size_t size)
{
	if (!stream)
		return false;
	auto* out = static_cast<char*>(data);
	while (size > 0)
	{
		const auto piece = static_cast<int32>(std::min(size, kMaxTransfer));
		int32 done = 0;
		if (stream->read(out, piece, &done) != kResultOk || done != piece)
			return false;
		out += piece;
		size -= static_cast<size_t>(piece);
	}
	return true;
}

bool VstFileStream::writeBytes(const void* data, size_t size)
{
	if (!stream)
		return false;
	auto* in = static_cast<char*>(const_cast<void*>(data)); // IBStream::write takes void*
	while (size > 0)
	{
		const auto piece = static_cast<int32>(std::min(size, kMaxTransfer));
		int32 done = 0;
		if (stream->write(in, piece, &done) != kResultOk || done != piece)
			return false;
		in += piece;
		size -= static_cast<size_t>(piece);
	}
	return true;
}

bool VstFileStream::seek(long long position)
{
	return stream && position >= 0 &&
	       stream->seek(position, IBStream::kIBSeekSet, nullptr) == kResultOk;
}

bool VstFileStream::tell(long long& position)
{
	int64 where = 0;
	if (!stream || stream->tell(&where) != kResultOk)
		return false;
	position = where;
	return true;
}
