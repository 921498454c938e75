// Typed numbers in, engineering numbers out, and numbers picked out of text.
#include "osi/text/osinumbertostring.h"
#include "osi/text/osiparsenumber.h"
#include "osi/text/osistringtonumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

TEST(StringToNumber, AcceptsEveryEngineeringSuffix)
{
	const struct
	{
		const char* text;
		double value;
	} cases[] = {{"3.3k", 3300}, {"10u", 1e-5},    {"1f", 1e-15}, {"2p", 2e-12},  {"-4n", -4e-9},
	             {"5m", 5e-3},   {"1.5M", 1.5e6},  {"2G", 2e9},   {"7T", 7e12},   {"42", 42},
	             {" 12", 12},    {"-1e-3", -1e-3}, {"1e5k", 1e8}, {"3.3kx", 3300}};
	for (const auto& c : cases)
	{
		OsiStringToNumber number;
		EXPECT_TRUE(number.convert(c.text)) << c.text;
		EXPECT_TRUE(number.valid) << c.text;
		EXPECT_DOUBLE_EQ(number.value, c.value) << c.text;
	}
}

TEST(StringToNumber, RefusesOtherCharactersAfterTheNumber)
{
	// The letters are case-sensitive, and a trailing blank counts as a
	// character after the number.
	for (const char* text : {"2K", "12 ", "5x", "1.5.5"})
	{
		OsiStringToNumber number;
		EXPECT_FALSE(number.convert(text)) << text;
		EXPECT_FALSE(number.valid);
		EXPECT_STREQ(number.errorMessage, "Invalid engineering format suffix") << text;
	}
	for (const char* text : {"", "abc", "-", "k3"})
	{
		OsiStringToNumber number;
		EXPECT_FALSE(number.convert(text)) << text;
		EXPECT_STREQ(number.errorMessage, "Invalid numerical format") << text;
	}
	OsiStringToNumber number;
	EXPECT_FALSE(number.convert(nullptr));
	EXPECT_STREQ(number.errorMessage, "Invalid numerical format");
}

TEST(StringToNumber, ReadsHexadecimalAndOctalIntegers)
{
	OsiStringToNumber number;
	EXPECT_TRUE(number.convert("0x1A"));
	EXPECT_EQ(number.value, 26);
	EXPECT_TRUE(number.convert("0x1Ak")); // a hexadecimal mantissa takes a suffix too
	EXPECT_EQ(number.value, 26000);
	// The C library's floating scan takes 017 whole, as seventeen; the
	// integer scan only gets what the floating scan cannot read at all.
	EXPECT_TRUE(number.convert("017"));
	EXPECT_EQ(number.value, 17);
	EXPECT_TRUE(number.convert("0x"));
	EXPECT_EQ(number.value, 0);
}

TEST(StringToNumber, EnforcesItsRangeWithTheBoundsIncluded)
{
	OsiStringToNumber number(0, 10);
	EXPECT_TRUE(number.convert("10"));
	EXPECT_TRUE(number.convert("0"));
	EXPECT_FALSE(number.convert("10.5"));
	EXPECT_FALSE(number.valid);
	EXPECT_STREQ(number.errorMessage, "Value greater than maximum allowable value");
	EXPECT_FALSE(number.convert("1k"));
	EXPECT_FALSE(number.convert("-1m"));
	EXPECT_STREQ(number.errorMessage, "Value less than minimum allowable value");
	EXPECT_TRUE(number.convert("5"));
	EXPECT_TRUE(number.valid);

	// Equal bounds: no range at all.
	OsiStringToNumber unbounded;
	EXPECT_TRUE(unbounded.convert("1T"));
	EXPECT_TRUE(unbounded.convert("-1T"));
	unbounded.minimum = unbounded.maximum = 3;
	EXPECT_TRUE(unbounded.convert("1e300"));
}

std::string printed(double value, int precision, bool spaced)
{
	return OsiNumberToString(spaced).format(value, precision).text();
}

TEST(NumberToString, ChoosesTheLetterThatBringsTheMantissaIntoOneToAThousand)
{
	EXPECT_EQ(printed(1234.5, 3, true), "1.23 k");
	EXPECT_EQ(printed(1234.5, 3, false), "1.23k");
	EXPECT_EQ(printed(1.5e-15, 3, false), "1.5f");
	EXPECT_EQ(printed(22e-12, 3, false), "22p");
	EXPECT_EQ(printed(470e-9, 3, false), "470n");
	EXPECT_EQ(printed(-1e-5, 3, false), "-10u");
	EXPECT_EQ(printed(0.25, 3, false), "250m");
	EXPECT_EQ(printed(999, 3, false), "999");
	EXPECT_EQ(printed(2.2e6, 3, false), "2.2M");
	EXPECT_EQ(printed(3e9, 3, false), "3G");
	EXPECT_EQ(printed(999e12, 3, false), "999T");
}

TEST(NumberToString, PrintsWithoutALetterOutsideTheBandAndForZero)
{
	// Without a letter the NUL ends the text: the spaced form keeps its
	// blank so that units after it line up.
	EXPECT_EQ(printed(0, 3, true), "0 ");
	EXPECT_EQ(printed(0, 3, false), "0");
	EXPECT_EQ(printed(12.5, 3, true), "12.5 ");
	EXPECT_EQ(printed(1e-16, 3, false), "1e-16");
	EXPECT_EQ(printed(1e-16, 3, true), "1e-16 ");
	EXPECT_EQ(printed(1e15, 3, false), "1e+15");
	EXPECT_EQ(printed(std::nan(""), 3, false), "nan");
	EXPECT_EQ(printed(-std::numeric_limits<double>::infinity(), 3, false), "-inf");
}

TEST(NumberToString, EngineeringFormatSharesTheLetterOfAGivenPower)
{
	const OsiNumberToString number(true);
	EXPECT_EQ(number.engineeringFormat(1500, 6, 3).text(), "0.0015 M");
	EXPECT_EQ(number.engineeringFormat(2.5e6, 7, 3).text(), "2.5 M");
	EXPECT_EQ(number.engineeringFormat(1500, 2, 4).text(), "1500 ");
	EXPECT_EQ(number.engineeringFormat(1500, 15, 4).text(), "1500 ");
	EXPECT_EQ(number.engineeringFormat(1500, -16, 4).text(), "1500 ");
	EXPECT_EQ(number.engineeringFormat(3e-15, -13, 3).text(), "3 f");
	// The result lives in the object until the next call.
	const OsiNumberToString& again = number.format(1, 3);
	EXPECT_EQ(&again, &number);
	EXPECT_STREQ(number.c_str(), "1 ");
}

TEST(ParseNumber, FindsTheFirstDigitNotJoinedToALetter)
{
	const OsiParseNumber parser;
	const char* text = "x23";
	EXPECT_EQ(parser.findAlphaNumeric(text), text + 2);
	text = ".5";
	EXPECT_EQ(parser.findAlphaNumeric(text), text + 1);
	text = "7up";
	EXPECT_EQ(parser.findAlphaNumeric(text), text);
	text = "gain -12 dB";
	EXPECT_EQ(parser.findAlphaNumeric(text), text + 5);
	text = "+5";
	EXPECT_EQ(parser.findAlphaNumeric(text), text);
	EXPECT_EQ(parser.findAlphaNumeric("no digits"), nullptr);
	EXPECT_EQ(parser.findAlphaNumeric("a1b2"), nullptr);
	EXPECT_EQ(parser.findAlphaNumeric(nullptr), nullptr);
}

TEST(ParseNumber, SplitsMantissaAndExponent)
{
	OsiParseNumber parser;
	const char* start = nullptr;
	const char* end = nullptr;
	const char* text = "ch2 gain -12E+3 dB";
	ASSERT_TRUE(parser.parse(text, start, end));
	EXPECT_EQ(start, text + 9);
	EXPECT_EQ(end, text + 15);
	EXPECT_EQ(parser.mantissa, "-12");
	EXPECT_EQ(parser.exponent, "+3");

	// No decimal point: the scan stops at it.
	text = "1.5";
	ASSERT_TRUE(parser.parse(text, start, end));
	EXPECT_EQ(parser.mantissa, "1");
	EXPECT_EQ(parser.exponent, "");
	EXPECT_EQ(end, text + 1);

	// An 'e' without digits ends the number after the 'e' and its sign.
	text = "7e-x";
	ASSERT_TRUE(parser.parse(text, start, end));
	EXPECT_EQ(parser.mantissa, "7");
	EXPECT_EQ(parser.exponent, "");
	EXPECT_EQ(end, text + 3);

	EXPECT_FALSE(parser.parse("none here", start, end));
	EXPECT_EQ(start, nullptr);
	EXPECT_EQ(parser.mantissa, "");
	EXPECT_FALSE(parser.parseNumber("", end));
}

} // namespace
