// The structured file format, through both variants: the host-stream one over
// the SDK's memory stream and the file one over a real file.
#include "persist/byte_image.h"
#include "persist/memory_stream.h"
#include "persist/osistructuredfile.h"
#include "persist/vststructuredfile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>

namespace velora_test {
namespace {

using Steinberg::IPtr;
using Steinberg::MemoryStream;

// Writes a file of class "Thing" v3 with two blocks, A (v1, an int) and
// B (v2, a double and a nested block C with a string).
void writeSample(StructuredFile& file)
{
	long long a = 0, b = 0, c = 0;
	const int i = 77;
	const double d = 2.5;
	ASSERT_TRUE(file.beginClass("A", 1, a));
	ASSERT_TRUE(file.write(&i, TypedStream::kInt, 1));
	ASSERT_TRUE(file.endBlock(a));
	ASSERT_TRUE(file.beginClass("B", 2, b));
	ASSERT_TRUE(file.write(&d, TypedStream::kDouble, 1));
	ASSERT_TRUE(file.beginClass("C", 1, c));
	ASSERT_TRUE(file.write("nested", true));
	ASSERT_TRUE(file.endBlock(c));
	ASSERT_TRUE(file.endBlock(b));
}

void readSample(StructuredFile& file)
{
	long long a = 0, b = 0, c = 0;
	int i = 0;
	double d = 0;
	string_ext<char> text;
	ASSERT_TRUE(file.beginClass("A", 1, a));
	ASSERT_TRUE(file.read(&i, TypedStream::kInt, 1));
	ASSERT_TRUE(file.endBlock(a));
	ASSERT_TRUE(file.beginClass("B", 2, b));
	ASSERT_TRUE(file.read(&d, TypedStream::kDouble, 1));
	ASSERT_TRUE(file.beginClass("C", 1, c));
	ASSERT_TRUE(file.read(text));
	ASSERT_TRUE(file.endBlock(c));
	ASSERT_TRUE(file.endBlock(b));
	EXPECT_EQ(i, 77);
	EXPECT_EQ(d, 2.5);
	EXPECT_EQ(text, "nested");
}

std::vector<uint8_t> written(int version = 3, bool complete = true, int64_t start = 0)
{
	auto memory = streamOf(std::vector<uint8_t>(static_cast<size_t>(start), 0xEE), start);
	VstStructuredFile file;
	file.classNameAndVersion("Thing", version);
	EXPECT_TRUE(file.open(memory, true));
	writeSample(file);
	if (complete)
	{
		EXPECT_TRUE(file.close(true));
	}
	return bytesOf(*memory);
}

TEST(VstStructuredFile, HeaderLayout)
{
	const auto bytes = written();
	ByteImage header;
	header.text("VstStructuredFileRelative").sizeHeader(0, 0).text("Thing").i32(3).i32(1);
	ASSERT_GE(bytes.size(), header.size());
	EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + header.size()), header.data);
	// First block: relative length, name, version, the int.
	ByteImage block;
	block.i64(8 + 6 + 4 + 4).text("A").i32(1).i32(77);
	EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + header.size(),
	                               bytes.begin() + header.size() + block.size()),
	          block.data);
}

TEST(VstStructuredFile, RoundTripAndExactVersion)
{
	const auto bytes = written();
	auto memory = streamOf(bytes);
	VstStructuredFile reader;
	reader.classNameAndVersion("Thing", 3);
	ASSERT_TRUE(reader.open(memory, false));
	readSample(reader);
	EXPECT_TRUE(reader.close(false));
	EXPECT_FALSE(reader.close(false));

	for (int other : {2, 4})
	{
		VstStructuredFile wrong;
		wrong.classNameAndVersion("Thing", other);
		EXPECT_FALSE(wrong.open(streamOf(bytes), false)) << other;
		long long end = 0;
		EXPECT_FALSE(wrong.beginClass("A", 1, end)); // a refused reader has no stream
	}
	VstStructuredFile otherClass;
	otherClass.classNameAndVersion("Thong", 3);
	EXPECT_FALSE(otherClass.open(streamOf(bytes), false));
	EXPECT_FALSE(otherClass.open(nullptr, false));
}

TEST(VstStructuredFile, UnfinishedFileIsRefused)
{
	VstStructuredFile reader;
	reader.classNameAndVersion("Thing", 3);
	EXPECT_FALSE(reader.open(streamOf(written(3, false)), false));
}

TEST(VstStructuredFile, WrongBlockLeavesTheStreamAtItsStart)
{
	auto memory = streamOf(written());
	VstStructuredFile reader;
	reader.classNameAndVersion("Thing", 3);
	ASSERT_TRUE(reader.open(memory, false));
	long long before = 0, end = 99;
	ASSERT_TRUE(reader.markPosition(before));
	EXPECT_FALSE(reader.beginClass("B", 2, end));
	EXPECT_EQ(end, before);
	EXPECT_FALSE(reader.beginClass("A", 2, end)); // right name, wrong version
	long long after = 0;
	reader.markPosition(after);
	EXPECT_EQ(after, before);
	readSample(reader); // still all there
}

TEST(VstStructuredFile, EndBlockSkipsWhatWasNotRead)
{
	auto memory = streamOf(written());
	VstStructuredFile reader;
	reader.classNameAndVersion("Thing", 3);
	ASSERT_TRUE(reader.open(memory, false));
	long long a = 0, b = 0, c = 0;
	ASSERT_TRUE(reader.beginClass("A", 1, a));
	ASSERT_TRUE(reader.endBlock(a));
	ASSERT_TRUE(reader.beginClass("B", 2, b));
	ASSERT_TRUE(reader.endBlock(b)); // skips the double and the nested block
	EXPECT_FALSE(reader.beginClass("C", 1, c));
}

TEST(VstStructuredFile, RelativeLengthsSurviveANonZeroStart)
{
	const int64_t start = 1000;
	const auto bytes = written(3, true, start);
	auto memory = streamOf(bytes, start);
	VstStructuredFile reader;
	reader.classNameAndVersion("Thing", 3);
	ASSERT_TRUE(reader.open(memory, false));
	readSample(reader);
	// The same record moved to the start of a stream reads the same.
	auto movedMemory = streamOf(std::vector<uint8_t>(bytes.begin() + start, bytes.end()));
	VstStructuredFile moved;
	moved.classNameAndVersion("Thing", 3);
	ASSERT_TRUE(moved.open(movedMemory, false));
	readSample(moved);
}

TEST(VstStructuredFile, OlderSignatureUsesAbsoluteBlockEnds)
{
	const int64_t start = 5;
	ByteImage image;
	image.bytes({9, 9, 9, 9, 9});
	image.text("VstStructuredFile").sizeHeader(0, 0).text("Old").i32(1).i32(1);
	const size_t blockStart = image.size();
	const size_t blockLength = 8 + (4 + 6) + 4 + 4; // length, "Block", version, an int
	image.i64(static_cast<int64_t>(blockStart + blockLength)).text("Block").i32(1).i32(5);
	image.i64(static_cast<int64_t>(image.size() + 8 + 10 + 4)).text("Other").i32(1);

	auto memory = streamOf(image.data, start);
	VstStructuredFile reader;
	reader.classNameAndVersion("Old", 1);
	ASSERT_TRUE(reader.open(memory, false));
	long long end = 0;
	ASSERT_TRUE(reader.beginClass("Block", 1, end));
	EXPECT_EQ(end, static_cast<long long>(blockStart + blockLength));
	ASSERT_TRUE(reader.endBlock(end));
	ASSERT_TRUE(reader.beginClass("Other", 1, end));
}

TEST(VstStructuredFile, CopyBlockCarriesABlockOver)
{
	auto source = streamOf(written());
	VstStructuredFile reader;
	reader.classNameAndVersion("Thing", 3);
	ASSERT_TRUE(reader.open(source, false));
	long long a = 0;
	ASSERT_TRUE(reader.beginClass("A", 1, a));
	ASSERT_TRUE(reader.endBlock(a));

	auto target = streamOf({});
	VstStructuredFile writer;
	writer.classNameAndVersion("Copy", 1);
	ASSERT_TRUE(writer.open(target, true));
	ASSERT_TRUE(writer.copyBlock(reader));
	EXPECT_FALSE(reader.copyBlock(writer)); // only from a reader into a writer
	ASSERT_TRUE(writer.close(true));

	auto copied = streamOf(bytesOf(*target));
	VstStructuredFile check;
	check.classNameAndVersion("Copy", 1);
	ASSERT_TRUE(check.open(copied, false));
	long long b = 0, c = 0;
	double d = 0;
	string_ext<char> text;
	ASSERT_TRUE(check.beginClass("B", 2, b));
	ASSERT_TRUE(check.read(&d, TypedStream::kDouble, 1));
	ASSERT_TRUE(check.beginClass("C", 1, c));
	ASSERT_TRUE(check.read(text));
	EXPECT_EQ(text, "nested");
}

TEST(VstStructuredFile, FixupsPatchEarlierFields)
{
	auto memory = streamOf({});
	VstStructuredFile writer;
	writer.classNameAndVersion("Fix", 1);
	ASSERT_TRUE(writer.open(memory, true));
	long long pos = 0, here = 0;
	const int placeholder = 0, count = 3;
	ASSERT_TRUE(writer.beginFixup(pos));
	ASSERT_TRUE(writer.write(&placeholder, TypedStream::kInt, 1));
	ASSERT_TRUE(writer.write(&placeholder, TypedStream::kInt, 1));
	ASSERT_TRUE(writer.markPosition(here));
	ASSERT_TRUE(writer.jumpFixup(pos));
	EXPECT_EQ(pos, here);
	ASSERT_TRUE(writer.write(&count, TypedStream::kInt, 1));
	ASSERT_TRUE(writer.endFixup(pos));
	ASSERT_TRUE(writer.close(true));

	auto fixed = streamOf(bytesOf(*memory));
	VstStructuredFile reader;
	reader.classNameAndVersion("Fix", 1);
	ASSERT_TRUE(reader.open(fixed, false));
	long long p = 0;
	EXPECT_FALSE(reader.beginFixup(p));
	int values[2] = {};
	ASSERT_TRUE(reader.read(values, TypedStream::kInt, 2));
	EXPECT_EQ(values[0], 3);
	EXPECT_EQ(values[1], 0);
}

TEST(VstStructuredFile, HugeBlockLengthsDoNotOverflow)
{
	ByteImage image;
	image.text("VstStructuredFileRelative").sizeHeader(0, 0).text("T").i32(1).i32(1);
	image.i64(INT64_MAX).text("Block").i32(1);
	auto memory = streamOf(image.data);
	VstStructuredFile reader;
	reader.classNameAndVersion("T", 1);
	ASSERT_TRUE(reader.open(memory, false));
	long long end = 0;
	EXPECT_FALSE(reader.beginClass("Block", 1, end));
}

TEST(OsiStructuredFile, SameFormatInAFileWithItsOwnSignature)
{
	const std::string path = ::testing::TempDir() + "velora_structured.bin";
	OsiStructuredFile out("Thing", 3);
	ASSERT_TRUE(out.open(path.c_str(), true));
	writeSample(out);
	ASSERT_TRUE(out.close(true));
	EXPECT_FALSE(out.fileError());

	std::ifstream raw(path, std::ios::binary);
	std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(raw)), {});
	ByteImage header;
	header.text("OsiStructuredFileRelative");
	ASSERT_GE(bytes.size(), header.size());
	EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + header.size()), header.data);
	// Apart from the signature, the bytes are those of the host-stream variant.
	const auto vst = written();
	EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + header.size(), bytes.end()),
	          std::vector<uint8_t>(vst.begin() + header.size(), vst.end()));

	OsiStructuredFile in("Thing", 3);
	ASSERT_TRUE(in.open(path.c_str(), false));
	readSample(in);
	ASSERT_TRUE(in.close(false));

	OsiStructuredFile unfinished("Thing", 3);
	ASSERT_TRUE(unfinished.open(path.c_str(), true));
	writeSample(unfinished);
	// Reopening closes the file it had open, unfinished: it is then refused.
	EXPECT_FALSE(unfinished.open(path.c_str(), false));
	EXPECT_FALSE(OsiStructuredFile("Thing", 3).open("/nonexistent/x.bin", false));
	std::remove(path.c_str());
}

} // namespace
} // namespace velora_test
