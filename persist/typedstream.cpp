#include "persist/typedstream.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr uint8_t kHeaderMarker = 0xFF;
constexpr uint8_t kHeaderVersion = 1;
// An older header has no marker and version and only eleven sizes; the last
// sized type was then 4 bytes.
constexpr uint8_t kOldSignedWordSize = 4;
constexpr size_t kInitChunk = 1024;
// Strings are read in pieces of at most this size, so that a length field
// can never make the reader allocate more than the data that really follow.
constexpr size_t kStringChunk = 64 * 1024;

const uint8_t kNativeSizes[TypedStream::kSizedTypes] = {
    sizeof(uint8_t),       sizeof(short),       sizeof(unsigned short), sizeof(long),
    sizeof(unsigned long), sizeof(int),         sizeof(unsigned int),   sizeof(float),
    sizeof(double),        sizeof(long double), sizeof(long long),      sizeof(intptr_t)};

struct TypeInfo
{
	int sizeEntry; // index into the size table, -1 for raw types
	bool isSigned;
	bool floating;
};

// Indexed by DataType.
const TypeInfo kTypes[] = {
    {0, false, false},  // kUInt8
    {-1, false, false}, // kChar
    {-1, false, false}, // kByte
    {1, true, false},   // kShort
    {2, false, false},  // kUShort
    {3, true, false},   // kLong
    {4, false, false},  // kULong
    {5, true, false},   // kInt
    {6, false, false},  // kUInt
    {7, true, true},    // kFloat
    {8, true, true},    // kDouble
    {9, true, true},    // kLongDouble
    {10, true, false},  // kLongLong
    {11, true, false},  // kSignedWord
    {-1, false, false}, // kRawBlock
};

void reverse(uint8_t* bytes, size_t n)
{
	std::reverse(bytes, bytes + n);
}

} // namespace

// How one element type is laid out on the stream compared with memory.
struct TypedStream::Layout
{
	size_t native = 0; // s: size in memory
	size_t file = 0;   // f: size on the stream
	bool swap = false; // w: reverse the bytes of each element
	bool bigEndianData = false;
	bool isSigned = false;
	bool raw = false;
};

TypedStream::TypedStream()
{
	resetLayout();
}

void TypedStream::resetLayout()
{
	integerSwap = floatSwap = 0;
	std::memcpy(sizes, kNativeSizes, sizeof(sizes));
}

bool TypedStream::bigEndianNative()
{
	const uint16_t probe = 1;
	uint8_t first = 0;
	std::memcpy(&first, &probe, 1);
	return first == 0;
}

bool TypedStream::bigEndianFloatingPointNative()
{
	const double probe = 1.0; // sign and exponent live in the high-order bytes
	uint8_t first = 0;
	std::memcpy(&first, &probe, 1);
	return first != 0;
}

bool TypedStream::layoutOf(DataType type, Layout& layout) const
{
	if (type < kUInt8 || type > kRawBlock)
		return false;
	const TypeInfo& info = kTypes[type];
	if (info.sizeEntry < 0)
	{
		layout.raw = true;
		return true;
	}
	layout.native = kNativeSizes[info.sizeEntry];
	layout.file = sizes[info.sizeEntry];
	layout.bigEndianData = integerSwap != 0;
	layout.swap = (info.floating ? floatSwap : integerSwap) != 0 && layout.native > 1;
	layout.isSigned = info.isSigned;
	return true;
}

bool TypedStream::read(void* data, DataType type, int count, unsigned long elementSize)
{
	Layout layout;
	if (!data || count < 0 || !layoutOf(type, layout))
		return false;
	auto* out = static_cast<uint8_t*>(data);
	const size_t total = static_cast<size_t>(count) *
	                     (layout.raw ? (type == kRawBlock ? elementSize : 1) : layout.native);
	const bool ok = layout.raw ? readBytes(out, total) : readConverted(out, layout, count);
	// What a short read left behind is not data: a failed read yields zeros.
	if (!ok)
		std::memset(out, 0, total);
	return ok;
}

bool TypedStream::readConverted(uint8_t* out, const Layout& layout, int count)
{
	const size_t s = layout.native;
	const size_t f = layout.file;
	if (f == s)
	{
		if (!readBytes(out, static_cast<size_t>(count) * s))
			return false;
		if (layout.swap)
			for (int i = 0; i < count; ++i)
				reverse(out + i * s, s);
		return true;
	}
	uint8_t scratch[256];
	for (int i = 0; i < count; ++i, out += s)
	{
		if (f > s)
		{
			// Narrowing: big-endian data keep their low-order bytes at the end.
			if (!readBytes(scratch, f))
				return false;
			std::memcpy(out, scratch + (layout.bigEndianData ? f - s : 0), s);
		}
		else
		{
			// Widening, with sign fill for the signed types.
			const size_t at = layout.bigEndianData ? s - f : 0;
			if (!readBytes(scratch + at, f))
				return false;
			const uint8_t top = f == 0 ? 0 : scratch[layout.bigEndianData ? at : f - 1];
			const uint8_t fill = layout.isSigned && (top & 0x80) ? 0xFF : 0x00;
			std::memset(layout.bigEndianData ? scratch : scratch + f, fill, s - f);
			std::memcpy(out, scratch, s);
		}
		if (layout.swap)
			reverse(out, s);
	}
	return true;
}

bool TypedStream::write(const void* data, DataType type, int count, unsigned long elementSize)
{
	Layout layout;
	if (!data || count < 0 || !layoutOf(type, layout))
		return false;
	const auto* in = static_cast<const uint8_t*>(data);
	if (layout.raw)
		return writeBytes(in, static_cast<size_t>(count) * (type == kRawBlock ? elementSize : 1));
	if (layout.file == layout.native && !layout.swap)
		return writeBytes(in, static_cast<size_t>(count) * layout.native);
	return writeConverted(in, layout, count);
}

// The mirror image of reading, for a stream that holds a foreign layout.
bool TypedStream::writeConverted(const uint8_t* in, const Layout& layout, int count)
{
	const size_t s = layout.native;
	const size_t f = layout.file;
	uint8_t element[256];
	uint8_t scratch[256];
	for (int i = 0; i < count; ++i, in += s)
	{
		std::memcpy(element, in, s);
		if (layout.swap)
			reverse(element, s);
		if (f <= s)
		{
			if (!writeBytes(element + (layout.bigEndianData ? s - f : 0), f))
				return false;
			continue;
		}
		const uint8_t top = element[layout.bigEndianData ? 0 : s - 1];
		const uint8_t fill = layout.isSigned && (top & 0x80) ? 0xFF : 0x00;
		std::memset(scratch, fill, f);
		std::memcpy(scratch + (layout.bigEndianData ? f - s : 0), element, s);
		if (!writeBytes(scratch, f))
			return false;
	}
	return true;
}

bool TypedStream::writeSizeofHeader()
{
	const uint8_t head[4] = {kHeaderMarker, kHeaderVersion, integerSwap, floatSwap};
	return writeBytes(head, sizeof(head)) && writeBytes(sizes, sizeof(sizes));
}

bool TypedStream::readSizeofHeader()
{
	uint8_t first = 0;
	if (!readBytes(&first, 1))
		return false;
	uint8_t flags[2] = {};
	uint8_t read[kSizedTypes] = {};
	if (first == kHeaderMarker)
	{
		uint8_t version = 0;
		if (!readBytes(&version, 1) || version != kHeaderVersion || !readBytes(flags, 2) ||
		    !readBytes(read, kSizedTypes))
			return false;
	}
	else
	{
		flags[0] = first;
		if (!readBytes(flags + 1, 1) || !readBytes(read, kSizedTypes - 1))
			return false;
		read[kSizedTypes - 1] = kOldSignedWordSize;
	}
	// A type stored in no bytes at all would let a reader go round without
	// ever moving through the data.
	if (std::find(read, read + kSizedTypes, 0) != read + kSizedTypes)
		return false;
	integerSwap = flags[0];
	floatSwap = flags[1];
	std::memcpy(sizes, read, sizeof(sizes));
	return true;
}

bool TypedStream::write(const char* text, bool withLength)
{
	if (!text)
		return false;
	const int length = static_cast<int>(std::strlen(text)) + 1;
	if (withLength && !write(&length, kInt, 1))
		return false;
	return writeBytes(text, static_cast<size_t>(length));
}

bool TypedStream::write(const string_ext<char>& text, bool withLength)
{
	return write(text.c_str(), withLength);
}

bool TypedStream::read(string_ext<char>& text)
{
	int length = 0;
	if (!read(&length, kInt, 1) || length < 0)
		return false;
	text.clear();
	for (size_t done = 0; done < static_cast<size_t>(length);)
	{
		const size_t piece = std::min(kStringChunk, static_cast<size_t>(length) - done);
		text.resize(done + piece);
		if (!readBytes(&text[done], piece))
			return false;
		done += piece;
	}
	text.releaseBuffer();
	return true;
}

bool TypedStream::matchRead(const string_ext<char>& expected)
{
	int length = 0;
	if (!read(&length, kInt, 1))
		return false;
	const int wanted = static_cast<int>(expected.size()) + 1;
	// Twice the length: text once written with two bytes per character.
	if (length != wanted && length != 2 * wanted)
		return false;
	std::vector<char> bytes(static_cast<size_t>(length) + 1, 0);
	if (!readBytes(bytes.data(), static_cast<size_t>(length)))
		return false;
	return std::strcmp(bytes.data(), expected.c_str()) == 0;
}

bool TypedStream::writeInit(const char& fill, int count)
{
	char chunk[kInitChunk];
	std::memset(chunk, fill, sizeof(chunk));
	for (int left = count; left > 0;)
	{
		const int piece = std::min(left, static_cast<int>(kInitChunk));
		if (!writeBytes(chunk, static_cast<size_t>(piece)))
			return false;
		left -= piece;
	}
	return true;
}
