// A text file's lines, formatted output and hex dump, written and read back.
#include "osi/text/ositextfile.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(OsiTextFile, WritesAndReadsItsText)
{
	const velora_test::TempFolder folder;
	OsiTextFile text;
	ASSERT_TRUE(text.open(folder.path("text.txt").c_str(), "w+b"));
	EXPECT_EQ(text.printf("%d-%s", 42, "x"), 4);
	ASSERT_TRUE(text.writeLine("") && text.writeLine("second;line") && text.hexDump("AB\n", 3));
	ASSERT_TRUE(text.seek(0));
	string_ext<char> line;
	char found = 0;
	const struct
	{
		size_t limit;
		const char* ends;
		const char* line;
	} reads[] = {{100, nullptr, "42-x"},
	             {100, ";\n", "second"},
	             {3, nullptr, "lin"}, // a long line comes in pieces
	             {100, nullptr, "e"},
	             {100, nullptr, "00000000  41 42 0a                                         AB."}};
	for (const auto& r : reads)
	{
		ASSERT_TRUE(r.ends ? text.readLine(line, r.limit, r.ends, found)
		                   : text.readLine(line, r.limit));
		EXPECT_EQ(line, r.line);
	}
	EXPECT_EQ(found, ';');
	EXPECT_FALSE(text.readLine(line, 100));
	EXPECT_FALSE(text.error());
}

} // namespace
