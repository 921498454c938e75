// The typed stream against hand-built byte images: foreign byte orders and
// type sizes, both header forms, strings and their length checks.
#include "persist/byte_image.h"
#include "persist/memory_stream.h"
#include "persist/osifilestream.h"
#include "persist/vstfilestream.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velora_test {
namespace {

using Steinberg::IPtr;
using Steinberg::MemoryStream;

// A stream reading the given image, its header already consumed.
struct Reader
{
	explicit Reader(const ByteImage& image) : memory(streamOf(image.data)), stream(memory) {}
	IPtr<MemoryStream> memory;
	VstFileStream stream;
};

std::vector<uint8_t> sizesWith(int entry, uint8_t size)
{
	auto sizes = ByteImage::nativeSizes();
	sizes[static_cast<size_t>(entry)] = size;
	return sizes;
}

TEST(TypedStream, FreshStreamWritesNativeHeader)
{
	auto memory = streamOf({});
	VstFileStream stream(memory);
	ASSERT_TRUE(stream.writeSizeofHeader());
	EXPECT_EQ(bytesOf(*memory), ByteImage().sizeHeader(0, 0).data);
	EXPECT_FALSE(TypedStream::bigEndianNative());
	EXPECT_FALSE(TypedStream::bigEndianFloatingPointNative());
}

TEST(TypedStream, BigEndianDataAreSwapped)
{
	ByteImage image(true);
	image.sizeHeader(1, 1).i32(-2).integer(0x1234, 2).f64(-1.5).i64(1LL << 40);
	Reader r(image);
	ASSERT_TRUE(r.stream.readSizeofHeader());
	int i = 0;
	unsigned short u = 0;
	double d = 0;
	long long ll = 0;
	ASSERT_TRUE(r.stream.read(&i, TypedStream::kInt, 1));
	ASSERT_TRUE(r.stream.read(&u, TypedStream::kUShort, 1));
	ASSERT_TRUE(r.stream.read(&d, TypedStream::kDouble, 1));
	ASSERT_TRUE(r.stream.read(&ll, TypedStream::kLongLong, 1));
	EXPECT_EQ(i, -2);
	EXPECT_EQ(u, 0x1234);
	EXPECT_EQ(d, -1.5);
	EXPECT_EQ(ll, 1LL << 40);
}

TEST(TypedStream, NarrowIntWidenedWithSignFill)
{
	// kInt stored in 2 bytes, little-endian: sign-extended.
	ByteImage image;
	image.sizeHeader(0, 0, sizesWith(5, 2)).integer(0xFFFE, 2).integer(0x7FFF, 2);
	Reader r(image);
	ASSERT_TRUE(r.stream.readSizeofHeader());
	int values[2] = {};
	ASSERT_TRUE(r.stream.read(values, TypedStream::kInt, 2));
	EXPECT_EQ(values[0], -2);
	EXPECT_EQ(values[1], 0x7FFF);
}

TEST(TypedStream, UnsignedWidenedWithZeros)
{
	ByteImage image(true);
	image.sizeHeader(1, 0, sizesWith(6, 2)).integer(0xFFFE, 2);
	Reader r(image);
	ASSERT_TRUE(r.stream.readSizeofHeader());
	unsigned int v = 0;
	ASSERT_TRUE(r.stream.read(&v, TypedStream::kUInt, 1));
	EXPECT_EQ(v, 0xFFFEu);
}

TEST(TypedStream, WideBigEndianUIntKeepsItsLastFourBytes)
{
	ByteImage image(true);
	image.sizeHeader(1, 0, sizesWith(6, 8)).integer(0xAABBCCDD11223344ULL, 8);
	Reader r(image);
	ASSERT_TRUE(r.stream.readSizeofHeader());
	unsigned int v = 0;
	ASSERT_TRUE(r.stream.read(&v, TypedStream::kUInt, 1));
	EXPECT_EQ(v, 0x11223344u);
}

TEST(TypedStream, WideLittleEndianShortKeepsItsFirstBytes)
{
	ByteImage image;
	image.sizeHeader(0, 0, sizesWith(1, 4)).i32(-300);
	Reader r(image);
	ASSERT_TRUE(r.stream.readSizeofHeader());
	short v = 0;
	ASSERT_TRUE(r.stream.read(&v, TypedStream::kShort, 1));
	EXPECT_EQ(v, -300);
}

TEST(TypedStream, OlderHeaderHasElevenSizesAndAFourByteSignedWord)
{
	ByteImage image;
	image.bytes({0, 0});
	for (size_t i = 0; i + 1 < ByteImage::nativeSizes().size(); ++i)
		image.bytes({ByteImage::nativeSizes()[i]});
	image.i32(-7);
	ASSERT_EQ(image.size(), 2u + 11u + 4u); // two flags, eleven sizes, the value
	Reader r(image);
	ASSERT_TRUE(r.stream.readSizeofHeader());
	intptr_t word = 0;
	ASSERT_TRUE(r.stream.read(&word, TypedStream::kSignedWord, 1));
	EXPECT_EQ(word, -7);
}

TEST(TypedStream, HeaderOfAnUnknownVersionOrAZeroSizeIsRefused)
{
	ByteImage image;
	image.bytes({0xFF, 0x02, 0, 0});
	Reader r(image);
	EXPECT_FALSE(r.stream.readSizeofHeader());

	ByteImage zero;
	zero.sizeHeader(0, 0, sizesWith(8, 0));
	Reader z(zero);
	EXPECT_FALSE(z.stream.readSizeofHeader());
}

TEST(TypedStream, RawTypesAndBadArguments)
{
	auto memory = streamOf({});
	VstFileStream stream(memory);
	const char raw[5] = {'a', 'b', 0, 'c', 'd'};
	EXPECT_TRUE(stream.write(raw, TypedStream::kRawBlock, 1, 5));
	EXPECT_TRUE(stream.write(raw, TypedStream::kChar, 2));
	EXPECT_FALSE(stream.write(nullptr, TypedStream::kInt, 1));
	EXPECT_FALSE(stream.write(raw, static_cast<TypedStream::DataType>(15), 1));
	EXPECT_FALSE(stream.write(raw, TypedStream::kInt, -1));
	EXPECT_EQ(bytesOf(*memory), (std::vector<uint8_t>{'a', 'b', 0, 'c', 'd', 'a', 'b'}));
}

TEST(TypedStream, TruncatedDataFail)
{
	ByteImage image;
	image.bytes({1, 2, 3});
	Reader r(image);
	int v = 0;
	EXPECT_FALSE(r.stream.read(&v, TypedStream::kInt, 1));
}

TEST(TypedStream, StringsCarryTheirNul)
{
	auto memory = streamOf({});
	VstFileStream stream(memory);
	ASSERT_TRUE(stream.write("Pan", true));
	ASSERT_TRUE(stream.write("xy", false));
	EXPECT_FALSE(stream.write(static_cast<const char*>(nullptr), true));
	EXPECT_EQ(bytesOf(*memory), (std::vector<uint8_t>{4, 0, 0, 0, 'P', 'a', 'n', 0, 'x', 'y', 0}));

	ByteImage image;
	image.i32(6).bytes({'a', 'b', 0, 'c', 'd', 0});
	Reader r(image);
	string_ext<char> text;
	ASSERT_TRUE(r.stream.read(text));
	EXPECT_EQ(text, "ab");
}

TEST(TypedStream, StringLengthBeyondTheDataFailsWithoutAllocatingIt)
{
	ByteImage image;
	image.i32(0x7FFFFFFF).bytes({'a', 'b'});
	Reader r(image);
	string_ext<char> text;
	EXPECT_FALSE(r.stream.read(text));
	EXPECT_LT(text.capacity(), 1u << 20);

	ByteImage negative;
	negative.i32(-5);
	Reader n(negative);
	EXPECT_FALSE(n.stream.read(text));
}

TEST(TypedStream, MatchReadAcceptsOnceOrTwiceTheLength)
{
	for (int32_t stored : {11, 22, 10})
	{
		ByteImage image;
		image.i32(stored);
		image.chars("Parameters");
		image.data.resize(4 + static_cast<size_t>(stored), 0);
		Reader r(image);
		EXPECT_EQ(r.stream.matchRead("Parameters"), stored != 10) << stored;
	}
	ByteImage other;
	other.text("Parameterz");
	Reader r(other);
	EXPECT_FALSE(r.stream.matchRead("Parameters"));
	long long where = 0;
	r.stream.tell(where);
	EXPECT_EQ(where, 15); // left after the bytes read
}

TEST(TypedStream, WriteInitRepeatsOneByte)
{
	auto memory = streamOf({});
	VstFileStream stream(memory);
	ASSERT_TRUE(stream.writeInit('z', 2500));
	const auto bytes = bytesOf(*memory);
	ASSERT_EQ(bytes.size(), 2500u);
	EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 'z'), 2500);
}

TEST(OsiFileStream, RoundTripThroughAFile)
{
	const std::string path = ::testing::TempDir() + "velora_osi_stream.bin";
	OsiFileStream out;
	ASSERT_TRUE(out.open(path.c_str(), "w+b"));
	const double values[3] = {1.5, -2.25, 1e300};
	ASSERT_TRUE(out.writeSizeofHeader());
	ASSERT_TRUE(out.write(values, TypedStream::kDouble, 3));
	ASSERT_TRUE(out.seek(0));
	ASSERT_TRUE(out.readSizeofHeader());
	double back[3] = {};
	ASSERT_TRUE(out.read(back, TypedStream::kDouble, 3));
	EXPECT_EQ(back[2], 1e300);
	ASSERT_TRUE(out.close());
	EXPECT_FALSE(out.close());
	std::remove(path.c_str());
}

TEST(OsiFileStream, MissingFileFailsToOpen)
{
	OsiFileStream stream;
	EXPECT_FALSE(stream.open("/nonexistent/dir/file.bin", "r+b"));
	int v = 0;
	EXPECT_FALSE(stream.read(&v, TypedStream::kInt, 1));
	EXPECT_TRUE(stream.openTemporary());
	EXPECT_TRUE(stream.write(&v, TypedStream::kInt, 1));
}

} // namespace
} // namespace velora_test
