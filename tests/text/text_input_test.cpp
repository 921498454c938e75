// Numeric text files, written here, read under layout strings.
#include "osi/text/ositextinput.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;

class TextFile : public testing::Test
{
protected:
	// Writes contents (any bytes) to a new file; returns its path.
	std::string write(const std::string& contents)
	{
		const std::string path = folder.path("data" + std::to_string(++files) + ".txt");
		std::ofstream(path, std::ios::binary) << contents;
		return path;
	}

	// Opens contents under layout and reads values until there are no more.
	Values readAll(const std::string& contents, const char* layout)
	{
		EXPECT_TRUE(input.open(write(contents).c_str(), layout));
		Values values;
		double value = 0;
		while (input.read(value))
			values.push_back(value);
		return values;
	}

	velora_test::TempFolder folder;
	int files = 0;
	OsiTextInput input;
};

std::string cannotConvert(const std::string& field, int line, int column)
{
	return "ERROR : Cannot convert data \"" + field + "\"\nat line " + std::to_string(line) +
	       ", column " + std::to_string(column);
}

TEST_F(TextFile, ReadsWhatTheLayoutDescribes)
{
	const std::string megabyte(1 << 20, '1');
	const std::string padded = std::string(253, ' ') + "1.5"; // 256 characters fit
	const struct
	{
		std::string contents;
		const char* layout;
		Values values;
		std::string error;
	} cases[] = {
	    // Fixed-width fields; the rest of each line is skipped.
	    {"  1.5xyz\n   22\n-3e-1 comment\n", "dddddN", {1.5, 22, -0.3}, ""},
	    {"1.52.0-13\n", "ddd", {1.5, 2, -13}, ""},
	    {" 12 34\n", "ddddddN", {12}, ""},
	    {"a\t1\nb\t2\n", "TdN", {1, 2}, ""},
	    {"ab12\ncd34\n", "xxdN", {12, 34}, ""},
	    {"x,y,3\nx,y,4\n", ",,dN", {3, 4}, ""},
	    {"time 1 2\ntime 3 4\n", " d dN", {1, 2, 3, 4}, ""},
	    {"header\n7\n8\n", "Nd", {7, 8}, ""},
	    {"1\n2", "dN", {1, 2}, ""},
	    {"1,2\r\n3,4\r\n", "d,dN", {1, 2, 3, 4}, ""},
	    {"1\n2\n\n  \n\n", "dN", {1, 2}, ""},
	    {"", "dN", {}, ""},
	    {"1 2\n3 4\n", "xyz ", {}, ""},
	    {padded + "," + padded + "\n", "d,dN", {1.5, 1.5}, ""},
	    {megabyte + "\n42\n", "NdN", {42}, ""},
	    {std::string("1\0009\n2\n", 6), "dN", {1, 2}, ""},
	    // Errors stop the reading where the bad field starts.
	    {"1,2\n3,x\n5,6\n", "d,dN", {1, 2, 3}, cannotConvert("x", 2, 3)},
	    {"1.52.0abc\n", "ddd", {1.5, 2}, cannotConvert("abc", 1, 7)},
	    {"1,,3\n", "d,", {1}, cannotConvert("", 1, 3)},
	    {std::string("\0005\n", 3), "dN", {}, cannotConvert("", 1, 1)},
	    // Overlong fields are refused without reading past their first 256 bytes.
	    {megabyte, "dN", {}, cannotConvert(std::string(256, '1'), 1, 1)},
	    {std::string(300, '2') + ",1\n", "d,dN", {}, cannotConvert(std::string(256, '2'), 1, 1)},
	};
	for (const auto& c : cases)
	{
		SCOPED_TRACE(c.contents.substr(0, 40) + " under " + c.layout);
		EXPECT_EQ(readAll(c.contents, c.layout), c.values);
		EXPECT_EQ(input.errorMessage(), c.error);
		EXPECT_EQ(input.hasError(), !c.error.empty());
		EXPECT_EQ(input.read(), 0);
	}
}

TEST_F(TextFile, RangeStateAndResetBringReadingBack)
{
	ASSERT_TRUE(input.open(write("5,1\n3,9\n").c_str(), "d,dN"));
	// The range leaves the first value out of sum and count, and rewinds.
	const OsiTextInputRange range = input.range();
	EXPECT_EQ(range.minimum, 1);
	EXPECT_EQ(range.sum, 13);
	EXPECT_EQ(range.absoluteMaximum(), 9);
	EXPECT_EQ(input.read(), 5);
	// A position from another layout string starts the layout afresh.
	OsiTextInputState foreign = input.getState();
	const char other[] = "d,dN";
	foreign.formatPosition = other + 2;
	input.setState(foreign);
	EXPECT_EQ(input.read(), 1);
	// After an error (the fuzz target holds reading to a stop) reset starts over.
	readAll("1,2\n3,x\n", "d,dN");
	ASSERT_TRUE(input.reset());
	EXPECT_FALSE(input.hasError());
	EXPECT_EQ(input.read(), 1);
}

// Fields straddle every refill of the reader's buffer: the values are fscanf's, and
// states taken along the way bring reading back from far past them.
TEST_F(TextFile, LongFilesReadAsTheCLibraryReadsThem)
{
	std::string text;
	for (int i = 0; i < 20000; ++i)
		text += std::to_string(i) + "," + std::to_string(i * 0.37) + "\n";
	const std::string path = write(text);
	Values expected;
	std::FILE* file = std::fopen(path.c_str(), "r");
	double a = 0, b = 0;
	while (file && std::fscanf(file, "%lg,%lg\n", &a, &b) == 2)
		expected.insert(expected.end(), {a, b});
	std::fclose(file);
	ASSERT_TRUE(input.open(path.c_str(), "d,dN"));
	constexpr size_t kEvery = 7919;
	std::vector<OsiTextInputState> states;
	Values values;
	for (double value = 0;; values.push_back(value))
	{
		if (values.size() % kEvery == 0 && values.size() < expected.size())
			states.push_back(input.getState());
		if (!input.read(value))
			break;
	}
	EXPECT_EQ(values, expected);
	for (size_t k = states.size(); k-- > 0;)
	{
		input.setState(states[k]);
		EXPECT_EQ(input.read(), expected[k * kEvery]) << "state " << k;
	}
}

TEST_F(TextFile, SkipsHeaderLinesAndRefusesWhatItCannotOpen)
{
	const std::string path = write("time,level\nseconds,dB\n0.5,-3\n");
	ASSERT_TRUE(input.open(path.c_str(), "d,dN"));
	ASSERT_TRUE(input.skipLines(2));
	EXPECT_EQ(input.read(), 0.5);
	EXPECT_TRUE(input.skipLines(1000000000)); // stops at the end of the file
	EXPECT_TRUE(input.endOfData());

	EXPECT_FALSE(input.open(folder.path("missing.txt").c_str(), "dN"));
	EXPECT_FALSE(input.skipLines(1));
	EXPECT_FALSE(input.open(nullptr, "dN"));
	EXPECT_FALSE(input.open(path.c_str(), nullptr));
	EXPECT_FALSE(input.open(path.c_str(), ""));
}

} // namespace
