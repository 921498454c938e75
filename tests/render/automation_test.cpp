// Pan automation files: points, comments, and faults with file and line (the
// rendered moves are in the pan test).
#include "automation_file.h"
#include "failure.h"
#include "pan_curve.h"

#include <gtest/gtest.h>

#include <sstream>

namespace velora_test {
namespace {

using velora_render::Failure;
using velora_render::PanCurve;
using velora_render::parseAutomation;

PanCurve parse(const std::string& text)
{
	std::istringstream in(text);
	return parseAutomation(in, "moves.txt");
}

// The failure's message, or "" when the text parses.
std::string faultIn(const std::string& text)
{
	try
	{
		parse(text);
	}
	catch (const Failure& failure)
	{
		EXPECT_EQ(failure.status(), 1);
		return failure.what();
	}
	return "";
}

TEST(Automation, PointsCommentsAndBlankLines)
{
	const PanCurve curve = parse("# a move to the right\n"
	                             "\n"
	                             "0    -90   # start hard left\n"
	                             "\t1.5\t0\r\n"
	                             "  2 90\n"
	                             "2 -45\n");
	EXPECT_EQ(curve.size(), 4u);
	EXPECT_EQ(curve.at(0.0), -90.0);
	EXPECT_DOUBLE_EQ(curve.at(1.75), 45.0);
	// Two points at one time make a step; one point holds everywhere.
	EXPECT_EQ(curve.at(2.0), -45.0);
	EXPECT_EQ(parse("3 12.5").at(0.0), 12.5);
}

TEST(Automation, FaultsNameTheFileAndLine)
{
	EXPECT_EQ(faultIn("0 0\n1 abc\n"), "moves.txt:2: 'abc' is not a number of degrees");
	EXPECT_EQ(faultIn("# c\n0 0\n\n1 91\n"), "moves.txt:4: 91 degrees is outside -90..90");
	EXPECT_EQ(faultIn("0 -90.5"), "moves.txt:1: -90.5 degrees is outside -90..90");
	EXPECT_EQ(faultIn("0 0\n1\n"), "moves.txt:2: expected 'seconds degrees', found 1 field");
	EXPECT_EQ(faultIn("0 0 0\n"), "moves.txt:1: expected 'seconds degrees', found 3 fields");
	EXPECT_EQ(faultIn("2 0\n1 0\n"), "moves.txt:2: time 1 comes before the previous point's 2");
	EXPECT_EQ(faultIn("-1 0\n"), "moves.txt:1: '-1' is not a time in seconds (0 or more)");
	EXPECT_EQ(faultIn("1s 0\n"), "moves.txt:1: '1s' is not a time in seconds (0 or more)");
	EXPECT_EQ(faultIn("0 inf\n"), "moves.txt:1: 'inf' is not a number of degrees");
	EXPECT_EQ(faultIn("# nothing\n\n"),
	          "moves.txt: no automation points (lines of 'seconds degrees')");
}

} // namespace
} // namespace velora_test
