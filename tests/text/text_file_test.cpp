// A text file's lines, formatted output and hex dump, written and read back.
#include "osi/text/ositextfile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

TEST(OsiTextFile, WritesAndReadsItsText)
{
	const std::string path = ::testing::TempDir() + "velora_osi_text.txt";
	OsiTextFile text;
	ASSERT_TRUE(text.open(path.c_str(), "w+b"));
	EXPECT_EQ(text.printf("%d-%s", 42, "x"), 4);
	ASSERT_TRUE(text.writeLine(""));
	ASSERT_TRUE(text.writeLine("second;line"));
	ASSERT_TRUE(text.hexDump("AB\n", 3));
	ASSERT_TRUE(text.seek(0));
	string_ext<char> line;
	ASSERT_TRUE(text.readLine(line, 100));
	EXPECT_EQ(line, "42-x");
	char found = 0;
	ASSERT_TRUE(text.readLine(line, 100, ";\n", found));
	EXPECT_EQ(line, "second");
	EXPECT_EQ(found, ';');
	ASSERT_TRUE(text.readLine(line, 3));
	EXPECT_EQ(line, "lin"); // a long line comes in pieces
	ASSERT_TRUE(text.readLine(line, 100));
	EXPECT_EQ(line, "e");
	ASSERT_TRUE(text.readLine(line, 100));
	EXPECT_EQ(line, "00000000  41 42 0a" + std::string(13 * 3 + 2, ' ') + "AB.");
	EXPECT_FALSE(text.readLine(line, 100));
	EXPECT_FALSE(text.error());
	std::remove(path.c_str());
}

} // namespace
