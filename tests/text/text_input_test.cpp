// Numeric text files, written here, read under layout strings.
#include "osi/text/ositextinput.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

class TextFile : public testing::Test
{
protected:
	void SetUp() override
	{
		char pattern[] = "/tmp/velora_text_input_XXXXXX";
		ASSERT_NE(mkdtemp(pattern), nullptr);
		directory = pattern;
	}
	void TearDown() override
	{
		for (const std::string& file : files)
			std::remove(file.c_str());
		rmdir(directory.c_str());
	}

	// Writes contents (any bytes) to a new file; returns its path.
	std::string write(const std::string& contents)
	{
		const std::string path = directory + "/data" + std::to_string(files.size()) + ".txt";
		std::FILE* file = std::fopen(path.c_str(), "wb");
		EXPECT_NE(file, nullptr);
		if (file)
		{
			std::fwrite(contents.data(), 1, contents.size(), file);
			std::fclose(file);
		}
		files.push_back(path);
		return path;
	}

	// Opens contents under layout and reads values until there are no more.
	std::vector<double> readAll(const std::string& contents, const char* layout)
	{
		EXPECT_TRUE(input.open(write(contents).c_str(), layout));
		std::vector<double> values;
		double value = 0;
		while (input.read(value))
			values.push_back(value);
		return values;
	}

	std::string directory;
	std::vector<std::string> files;
	OsiTextInput input;
};

using Values = std::vector<double>;

TEST_F(TextFile, ReadsCommaSeparatedColumns)
{
	EXPECT_EQ(readAll("1,2\n3.5,-4e2\n5,6\n", "d,dN"), (Values{1, 2, 3.5, -400, 5, 6}));
	EXPECT_TRUE(input.endOfData());
	EXPECT_FALSE(input.hasError());
	EXPECT_EQ(input.line(), 4);
	EXPECT_EQ(input.column(), 1);
}

TEST_F(TextFile, ReadsFixedWidthFields)
{
	// Five characters per value; the rest of each line is skipped.
	EXPECT_EQ(readAll("  1.5xyz\n   22\n-3e-1 comment\n", "dddddN"), (Values{1.5, 22, -0.3}));
	// Fields of three characters without delimiters.
	EXPECT_EQ(readAll("1.52.0-13\n", "ddd"), (Values{1.5, 2, -13}));
	EXPECT_EQ(readAll("1.52.0\n", "dddN"), (Values{1.5}));
	// The extent of a field is its own: blanks inside end the number.
	EXPECT_EQ(readAll(" 12 34\n", "ddddddN"), (Values{12}));
}

TEST_F(TextFile, SkipsTabsBlanksCharactersAndLines)
{
	EXPECT_EQ(readAll("a\t1\nb\t2\n", "TdN"), (Values{1, 2}));
	EXPECT_EQ(readAll("ab12\ncd34\n", "xxdN"), (Values{12, 34}));
	EXPECT_EQ(readAll("x,y,3\nx,y,4\n", ",,dN"), (Values{3, 4}));
	EXPECT_EQ(readAll("time 1 2\ntime 3 4\n", " d dN"), (Values{1, 2, 3, 4}));
	EXPECT_EQ(readAll("1\t2\n", "dTdN"), (Values{1, 2}));
	// A value per line after a header line ("N" comes before "d" again).
	EXPECT_EQ(readAll("header\n7\n8\n", "Nd"), (Values{7, 8}));
}

TEST_F(TextFile, CopesWithLineEndsAndTheEndOfTheFile)
{
	EXPECT_EQ(readAll("1\n2", "dN"), (Values{1, 2})); // no final newline
	EXPECT_EQ(readAll("1,2\r\n3,4\r\n", "d,dN"), (Values{1, 2, 3, 4}));
	EXPECT_EQ(readAll("1\n2\n\n  \n\n", "dN"), (Values{1, 2})); // blank lines at the end
	EXPECT_EQ(readAll("", "dN"), Values{});
	EXPECT_TRUE(input.endOfData());
	EXPECT_EQ(input.read(), 0);
	EXPECT_FALSE(input.hasError());
}

TEST_F(TextFile, ReportsAFieldThatIsNoNumberAndStopsReading)
{
	EXPECT_EQ(readAll("1,2\n3,x\n5,6\n", "d,dN"), (Values{1, 2, 3}));
	ASSERT_TRUE(input.hasError());
	EXPECT_EQ(input.errorMessage(), "ERROR : Cannot convert data \"x\"\nat line 2, column 3");
	const long long stoppedAt = input.getState().filePosition;
	EXPECT_EQ(input.read(), 0);
	EXPECT_EQ(input.read(), 0);
	EXPECT_EQ(input.getState().filePosition, stoppedAt);
	// The range of a file in error is empty.
	const OsiTextInputRange range = input.range();
	EXPECT_EQ(range.count, 0);
	EXPECT_EQ(range.maximum, 0);

	// reset() clears the error and starts over.
	ASSERT_TRUE(input.reset());
	EXPECT_FALSE(input.hasError());
	EXPECT_TRUE(input.errorMessage().empty());
	EXPECT_EQ(input.read(), 1);
	EXPECT_EQ(input.line(), 1);
}

TEST_F(TextFile, ReportsTheColumnWhereTheBadFieldStarts)
{
	readAll("1.52.0abc\n", "ddd");
	EXPECT_EQ(input.errorMessage(), "ERROR : Cannot convert data \"abc\"\nat line 1, column 7");
	readAll("1,,3\n", "d,");
	EXPECT_EQ(input.errorMessage(), "ERROR : Cannot convert data \"\"\nat line 1, column 3");
}

TEST_F(TextFile, RefusesOverlongFieldsWithoutReadingPastThem)
{
	// A megabyte without a newline, read as one value to the end of the line.
	const std::string megabyte(1 << 20, '1');
	EXPECT_EQ(readAll(megabyte, "dN"), Values{});
	ASSERT_TRUE(input.hasError());
	EXPECT_EQ(input.errorMessage(),
	          "ERROR : Cannot convert data \"" + std::string(256, '1') + "\"\nat line 1, column 1");

	// A field longer than 256 characters before its comma.
	EXPECT_EQ(readAll(std::string(300, '2') + ",1\n", "d,dN"), Values{});
	EXPECT_TRUE(input.hasError());
	// 256 characters fit exactly, with the delimiter or the end after them.
	const std::string padded = std::string(253, ' ') + "1.5";
	EXPECT_EQ(readAll(padded + "," + padded + "\n", "d,dN"), (Values{1.5, 1.5}));
	EXPECT_EQ(readAll(padded, "d,"), (Values{1.5}));
	// Skipping a long line is no problem.
	EXPECT_EQ(readAll(megabyte + "\n42\n", "NdN"), (Values{42}));
	EXPECT_EQ(input.fileLength(), (1 << 20) + 4);
}

TEST_F(TextFile, NulBytesEndTheTextOfAField)
{
	EXPECT_EQ(readAll(std::string("1\0"
	                              "9\n2\n",
	                              6),
	                  "dN"),
	          (Values{1, 2}));
	EXPECT_EQ(readAll(std::string("\0"
	                              "5\n",
	                              3),
	                  "dN"),
	          Values{});
	EXPECT_EQ(input.errorMessage(), "ERROR : Cannot convert data \"\"\nat line 1, column 1");
}

TEST_F(TextFile, RangeLeavesTheFirstValueOutOfSumAndCount)
{
	ASSERT_TRUE(input.open(write("5\n1\n3\n9\n").c_str(), "dN"));
	const OsiTextInputRange range = input.range();
	EXPECT_EQ(range.maximum, 9);
	EXPECT_EQ(range.minimum, 1);
	EXPECT_EQ(range.sum, 13);
	EXPECT_EQ(range.count, 3);
	EXPECT_DOUBLE_EQ(range.mean(), 13.0 / 3);
	// Rewound, but the line count goes on.
	EXPECT_FALSE(input.endOfData());
	EXPECT_EQ(input.line(), 5);
	EXPECT_EQ(input.read(), 5);
	EXPECT_EQ(input.line(), 6);
}

TEST_F(TextFile, StateBringsReadingBackToAPosition)
{
	ASSERT_TRUE(input.open(write("1,2\n3,4\n").c_str(), "d,dN"));
	EXPECT_EQ(input.read(), 1);
	const OsiTextInputState state = input.getState();
	EXPECT_EQ(state.formatPosition, input.format().c_str() + 2);
	EXPECT_EQ(input.read(), 2);
	EXPECT_EQ(input.read(), 3);
	input.setState(state);
	EXPECT_EQ(input.read(), 2);
	EXPECT_EQ(input.read(), 3);
	EXPECT_EQ(input.read(), 4);
	EXPECT_TRUE(input.endOfData());
	// A position from another string starts the layout afresh.
	OsiTextInputState foreign = state;
	const char other[] = "d,dN";
	foreign.formatPosition = other + 2;
	input.setState(foreign);
	EXPECT_EQ(input.read(), 2);
	EXPECT_FALSE(input.endOfData());
}

// Enough rows that fields straddle every refill of the reader's buffer: the
// values are those fscanf reads, and states taken along the way bring
// reading back from far past them.
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

TEST_F(TextFile, SkipsHeaderLines)
{
	ASSERT_TRUE(input.open(write("time,level\nseconds,dB\n0.5,-3\n").c_str(), "d,dN"));
	ASSERT_TRUE(input.skipLines(2));
	EXPECT_EQ(input.line(), 3);
	EXPECT_EQ(input.read(), 0.5);
	EXPECT_EQ(input.read(), -3);
	EXPECT_TRUE(input.endOfData());
	EXPECT_TRUE(input.skipLines(1000000000)); // stops at the end of the file
}

TEST_F(TextFile, RefusesWhatItCannotOpen)
{
	EXPECT_FALSE(input.open((directory + "/missing.txt").c_str(), "dN"));
	EXPECT_TRUE(input.endOfData());
	EXPECT_EQ(input.read(), 0);
	EXPECT_FALSE(input.skipLines(1));
	const std::string path = write("1\n");
	EXPECT_FALSE(input.open(nullptr, "dN"));
	EXPECT_FALSE(input.open(path.c_str(), nullptr));
	EXPECT_FALSE(input.open(path.c_str(), ""));
	EXPECT_TRUE(input.open(path.c_str(), "dN"));
	EXPECT_EQ(input.fileName(), path);
	EXPECT_EQ(input.format(), "dN");
}

TEST_F(TextFile, ALayoutWithoutValuesReadsToTheEnd)
{
	for (const char* layout : {"N", "x", "T", ",", "xyz "})
	{
		EXPECT_EQ(readAll("1 2\n3 4\n", layout), Values{}) << layout;
		EXPECT_TRUE(input.endOfData());
	}
}

TEST(TextInputRange, KeepsBoundsSumAndCount)
{
	const OsiTextInputRange ordered(3, -7, 10, 2);
	EXPECT_EQ(ordered.maximum, 3);
	EXPECT_EQ(ordered.minimum, -7);
	EXPECT_EQ(ordered.absoluteMaximum(), 7);
	EXPECT_EQ(ordered.mean(), 5);

	// A default range starts at zero and so always includes it.
	OsiTextInputRange range;
	EXPECT_EQ(range.mean(), 0);
	range.addToRange(4);
	range.addToRange(6);
	EXPECT_EQ(range.minimum, 0);
	EXPECT_EQ(range.maximum, 6);
	EXPECT_EQ(range.count, 2);
	EXPECT_EQ(range.mean(), 5);
}

} // namespace
