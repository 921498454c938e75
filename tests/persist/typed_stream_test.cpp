// The typed stream against hand-built byte images: every type in either byte
// order and in other widths, both header forms, strings and their lengths.
#include "persist/byte_image.h"
#include "persist/memory_stream.h"
#include "persist/osifilestream.h"
#include "persist/vstfilestream.h"

#include <gtest/gtest.h>

#include <cstring>

namespace velora_test {
namespace {

using Steinberg::IPtr;
using Steinberg::MemoryStream;

// A stream over the given bytes.
struct Reader
{
	explicit Reader(const std::vector<uint8_t>& bytes = {})
	: memory(streamOf(bytes)),
	  stream(memory)
	{}
	IPtr<MemoryStream> memory;
	VstFileStream stream;
};

// The sized types: their entry in the header's size table, their signedness.
const struct
{
	TypedStream::DataType type;
	int entry;
	bool isSigned;
	bool floating;
} kTypes[] = {
    {TypedStream::kUInt8, 0, false, false},    {TypedStream::kShort, 1, true, false},
    {TypedStream::kUShort, 2, false, false},   {TypedStream::kLong, 3, true, false},
    {TypedStream::kULong, 4, false, false},    {TypedStream::kInt, 5, true, false},
    {TypedStream::kUInt, 6, false, false},     {TypedStream::kFloat, 7, true, true},
    {TypedStream::kDouble, 8, true, true},     {TypedStream::kLongDouble, 9, true, true},
    {TypedStream::kLongLong, 10, true, false}, {TypedStream::kSignedWord, 11, true, false}};

// An integer of `width` bytes in `size` bytes: low-order bytes, sign- or zero-extended.
uint64_t widened(uint64_t value, size_t width, size_t size, bool isSigned)
{
	const auto mask = [](size_t bytes) { return bytes >= 8 ? ~0ull : (1ull << (8 * bytes)) - 1; };
	value &= mask(width);
	if (isSigned && width < 8 && (value >> (8 * width - 1)) & 1)
		value |= ~mask(width);
	return value & mask(size);
}

TEST(TypedStream, EveryTypeRoundTripsInEitherByteOrderAndAnyWidth)
{
	for (const auto& t : kTypes)
		for (bool big : {false, true})
			for (size_t width : {1, 2, 4, 8})
				// Distinct bytes; the lowest one's sign bit differs from the others'.
				for (uint64_t pattern : {0x7E7D7C7B7A797880ull, 0x8182838485868701ull})
				{
					const size_t size = ByteImage::nativeSizes()[size_t(t.entry)];
					if (t.floating && width != std::min<size_t>(size, 8))
						continue; // once, in their own width
					SCOPED_TRACE(testing::Message() << "type " << t.type << ", big " << big
					                                << ", width " << width << ", " << pattern);
					auto sizes = ByteImage::nativeSizes();
					sizes[size_t(t.entry)] = uint8_t(t.floating ? size : width);
					auto memory = streamOf(ByteImage(big).sizeHeader(big, big, sizes).data);
					VstFileStream stream(memory);
					long long start = 0;
					uint8_t value[16] = {}, back[16] = {}, want[16] = {};
					std::memcpy(value, &pattern, 8);
					ASSERT_TRUE(stream.readSizeofHeader() && stream.tell(start));
					ASSERT_TRUE(stream.write(value, t.type, 1));
					const auto bytes = bytesOf(*memory);
					// The stream holds the value in its own width and byte order.
					const uint64_t stored = widened(pattern, size, width, t.isSigned);
					if (size <= 8)
					{
						EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + start, bytes.end()),
						          ByteImage(big).integer(stored, width).data);
					}
					ASSERT_TRUE(stream.seek(start) && stream.read(back, t.type, 1));
					const uint64_t expected = widened(stored, width, size, t.isSigned);
					std::memcpy(want, &expected, std::min<size_t>(size, 8));
					EXPECT_EQ(std::memcmp(back, want, size), 0);
				}
}

TEST(TypedStream, HeadersOfBothFormsAndRefusedOnes)
{
	// The older header: two flags and eleven sizes; the signed word was 4 bytes.
	ByteImage older;
	older.bytes({0, 0});
	for (size_t i = 0; i + 1 < ByteImage::nativeSizes().size(); ++i)
		older.bytes({ByteImage::nativeSizes()[i]});
	older.i32(-7);
	Reader old(older.data);
	intptr_t word = 0;
	ASSERT_TRUE(old.stream.readSizeofHeader() &&
	            old.stream.read(&word, TypedStream::kSignedWord, 1));
	EXPECT_EQ(word, -7);

	auto zeroSize = ByteImage::nativeSizes();
	zeroSize[8] = 0;
	for (const ByteImage& bad : {ByteImage().bytes({0xFF, 0x02, 0, 0}),
	                             ByteImage().sizeHeader(0, 0, zeroSize), ByteImage().bytes({0xFF})})
		EXPECT_FALSE(Reader(bad.data).stream.readSizeofHeader());
}

TEST(TypedStream, StringsCarryTheirLengthAndNul)
{
	Reader written;
	ASSERT_TRUE(written.stream.write("Pan", true) && written.stream.write("xy", false));
	EXPECT_FALSE(written.stream.write(static_cast<const char*>(nullptr), true));
	EXPECT_EQ(bytesOf(*written.memory),
	          (std::vector<uint8_t>{4, 0, 0, 0, 'P', 'a', 'n', 0, 'x', 'y', 0}));

	const struct
	{
		ByteImage image;
		bool ok;
		const char* text;
	} reads[] = {{ByteImage().i32(6).bytes({'a', 'b', 0, 'c', 'd', 0}), true, "ab"},
	             {ByteImage().i32(0x7FFFFFFF).bytes({'a', 'b'}), false, ""},
	             {ByteImage().i32(-5), false, ""}};
	for (const auto& r : reads)
	{
		string_ext<char> text;
		EXPECT_EQ(Reader(r.image.data).stream.read(text), r.ok);
		if (r.ok)
		{
			EXPECT_EQ(text, r.text);
		}
		EXPECT_LT(text.capacity(), 1u << 20); // never sized by the length field
	}
}

TEST(TypedStream, MatchReadAcceptsOnceOrTwiceTheLength)
{
	for (int32_t stored : {11, 22, 10})
	{
		ByteImage image;
		image.i32(stored).chars("Parameters");
		image.data.resize(4 + size_t(stored), 0);
		EXPECT_EQ(Reader(image.data).stream.matchRead("Parameters"), stored != 10) << stored;
	}
}

TEST(TypedStream, RawBlocksBadArgumentsAndShortData)
{
	Reader written;
	VstFileStream& stream = written.stream;
	const char raw[5] = {'a', 'b', 0, 'c', 'd'};
	EXPECT_TRUE(stream.write(raw, TypedStream::kRawBlock, 1, 5));
	EXPECT_TRUE(stream.write(raw, TypedStream::kChar, 2));
	EXPECT_TRUE(stream.writeInit('z', 2500));
	EXPECT_FALSE(stream.write(nullptr, TypedStream::kInt, 1));
	EXPECT_FALSE(stream.write(raw, static_cast<TypedStream::DataType>(15), 1));
	EXPECT_FALSE(stream.write(raw, TypedStream::kInt, -1));
	auto expected = std::vector<uint8_t>{'a', 'b', 0, 'c', 'd', 'a', 'b'};
	expected.resize(expected.size() + 2500, 'z');
	EXPECT_EQ(bytesOf(*written.memory), expected);
	int v = 0;
	EXPECT_FALSE(Reader({1, 2, 3}).stream.read(&v, TypedStream::kInt, 1));
}

} // namespace
} // namespace velora_test
