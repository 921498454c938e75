// The structured file format over the SDK's memory stream and over a real
// file. (The plug-in's state tests pin a record's bytes and refuse foreign
// ones; the spline file tests read files back.)
#include "persist/byte_image.h"
#include "persist/memory_stream.h"
#include "persist/osistructuredfile.h"
#include "persist/vststructuredfile.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace velora_test {
namespace {

using Steinberg::IPtr;
using Steinberg::MemoryStream;

// Writes two blocks, A (v1, an int) and B (v2, a double and a nested block C
// with a string).
void writeSample(StructuredFile& file)
{
	long long a = 0, b = 0, c = 0;
	const int i = 77;
	const double d = 2.5;
	ASSERT_TRUE(file.beginClass("A", 1, a) && file.write(&i, TypedStream::kInt, 1) &&
	            file.endBlock(a));
	ASSERT_TRUE(file.beginClass("B", 2, b) && file.write(&d, TypedStream::kDouble, 1));
	ASSERT_TRUE(file.beginClass("C", 1, c) && file.write("nested", true) && file.endBlock(c));
	ASSERT_TRUE(file.endBlock(b));
}

// Reads what writeSample wrote, from block `first` on ("A" or "B").
void readSample(StructuredFile& file, const char* first = "A")
{
	long long a = 0, b = 0, c = 0;
	int i = 0;
	double d = 0;
	string_ext<char> text;
	if (*first == 'A')
	{
		ASSERT_TRUE(file.beginClass("A", 1, a) && file.read(&i, TypedStream::kInt, 1) &&
		            file.endBlock(a));
		EXPECT_EQ(i, 77);
	}
	ASSERT_TRUE(file.beginClass("B", 2, b) && file.read(&d, TypedStream::kDouble, 1));
	ASSERT_TRUE(file.beginClass("C", 1, c) && file.read(text) && file.endBlock(c));
	ASSERT_TRUE(file.endBlock(b));
	EXPECT_EQ(d, 2.5);
	EXPECT_EQ(text, "nested");
}

// The sample as a "Thing" of version 3.
std::vector<uint8_t> written(bool complete = true)
{
	auto memory = streamOf({});
	VstStructuredFile file;
	file.classNameAndVersion("Thing", 3);
	EXPECT_TRUE(file.open(memory, true));
	writeSample(file);
	EXPECT_TRUE(!complete || file.close(true));
	return bytesOf(*memory);
}

// A structured file reading bytes, opened as class name v version.
struct Opened
{
	Opened(const std::vector<uint8_t>& bytes, const char* name = "Thing", int version = 3)
	: memory(streamOf(bytes))
	{
		file.classNameAndVersion(name, version);
		ok = file.open(memory, false);
	}
	IPtr<MemoryStream> memory;
	VstStructuredFile file;
	bool ok = false;
};

TEST(VstStructuredFile, ReadsBackAndRefusesOtherFiles)
{
	Opened same(written());
	ASSERT_TRUE(same.ok);
	readSample(same.file);
	EXPECT_TRUE(same.file.close(false));
	EXPECT_FALSE(same.file.close(false));
	EXPECT_FALSE(Opened(written(), "Thing", 2).ok);
	EXPECT_FALSE(Opened(written(false)).ok); // never closed as complete
	EXPECT_FALSE(VstStructuredFile().open(nullptr, false));
}

TEST(VstStructuredFile, CopyBlockAndFixups)
{
	Opened source(written());
	long long a = 0, pos = 0;
	// Block A is left with its int unread: ending it skips the rest.
	ASSERT_TRUE(source.ok && source.file.beginClass("A", 1, a) && source.file.endBlock(a));
	auto target = streamOf({});
	VstStructuredFile writer;
	writer.classNameAndVersion("Copy", 1);
	ASSERT_TRUE(writer.open(target, true));
	// A count patched in after what it counts was written.
	const int placeholder = 0, count = 3;
	ASSERT_TRUE(writer.beginFixup(pos) && writer.write(&placeholder, TypedStream::kInt, 1));
	ASSERT_TRUE(writer.jumpFixup(pos) && writer.write(&count, TypedStream::kInt, 1) &&
	            writer.endFixup(pos));
	ASSERT_TRUE(writer.copyBlock(source.file) && writer.close(true));

	Opened copy(bytesOf(*target), "Copy", 1);
	int value = 0;
	ASSERT_TRUE(copy.ok && copy.file.read(&value, TypedStream::kInt, 1));
	EXPECT_EQ(value, 3);
	readSample(copy.file, "B");
}

TEST(OsiStructuredFile, SameFormatInAFileWithItsOwnSignature)
{
	const TempFolder folder;
	const std::string path = folder.path("structured.bin");
	OsiStructuredFile out("Thing", 3);
	ASSERT_TRUE(out.open(path.c_str(), true));
	writeSample(out);
	ASSERT_TRUE(out.close(true));

	std::ifstream raw(path, std::ios::binary);
	const std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(raw)), {});
	// The host-stream variant's bytes after a signature of the same length.
	ByteImage expected;
	expected.text("OsiStructuredFileRelative");
	const auto vst = written();
	expected.data.insert(expected.data.end(), vst.begin() + long(expected.size()), vst.end());
	EXPECT_EQ(bytes, expected.data);
	// Reopening closes the file it had open, unfinished: it is then refused.
	ASSERT_TRUE(out.open(path.c_str(), true));
	writeSample(out);
	EXPECT_FALSE(out.open(path.c_str(), false));
	EXPECT_FALSE(OsiStructuredFile("Thing", 3).open(folder.path("missing.bin").c_str(), false));
}

} // namespace
} // namespace velora_test
