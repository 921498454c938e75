// Engineering numbers: printed against the C library's own rounding, parsed
// back, and picked out of text.
#include "osi/text/osinumbertostring.h"
#include "osi/text/osiparsenumber.h"
#include "osi/text/osistringtonumber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

namespace {

std::string printed(double value, int precision, bool spaced = false)
{
	return OsiNumberToString(spaced).format(value, precision).text();
}

TEST(NumberToString, RoundsAsTheCLibraryAndParsesBack)
{
	const unsigned seed = 20240611;
	SCOPED_TRACE("seed " + std::to_string(seed));
	std::mt19937_64 random(seed);
	std::uniform_real_distribution<double> decades(-18, 18);
	int sameDigits = 0;
	for (int i = 0; i < 20000; ++i)
	{
		const double value = (random() % 2 ? -1 : 1) * std::pow(10.0, decades(random));
		const int precision = 1 + int(random() % 17);
		const std::string text = printed(value, precision);
		SCOPED_TRACE(text);
		// The letter's power of ten, and the mantissa before it.
		const char* letters = "fpnum kMGT";
		const char* letter = std::strchr(letters, text.back());
		const int power = letter ? 3 * int(letter - letters) - 15 : 0;
		const double mantissa =
		    std::strtod(text.substr(0, text.size() - (letter ? 1 : 0)).c_str(), nullptr);
		const int decade = int(std::floor(std::log10(std::fabs(value))));
		if (decade >= -15 && decade < 15)
		{
			EXPECT_EQ(power, decade - (decade + 15) % 3) << value;
			EXPECT_LE(std::fabs(mantissa), 1000);
		}
		// The C library's rounding of the value itself: the same digits, but
		// for the rare last digit that scaling by the letter's power tips over.
		char reference[64];
		std::snprintf(reference, sizeof reference, "%.*e", precision - 1, value);
		const double ratio = mantissa * std::pow(10.0, power) / std::strtod(reference, nullptr);
		EXPECT_NEAR(ratio, 1, 1.5 * std::pow(10.0, 1 - precision) + 1e-15);
		sameDigits += std::fabs(ratio - 1) < 1e-15;
		OsiStringToNumber number;
		ASSERT_TRUE(number.convert(printed(value, 17).c_str()));
		ASSERT_NEAR(number.value / value, 1, 1e-15);
	}
	EXPECT_GT(sameDigits, 19900);
}

TEST(NumberToString, SpacingZeroAndValuesOutsideTheLetters)
{
	// Without a letter the NUL ends the text: the spaced form keeps its blank.
	const struct
	{
		double value;
		bool spaced;
		const char* text;
	} cases[] = {{1234.5, true, "1.23 k"}, {0, true, "0 "},           {0, false, "0"},
	             {12.5, true, "12.5 "},    {1e-16, true, "1e-16 "},   {1e15, false, "1e+15"},
	             {NAN, false, "nan"},      {-INFINITY, false, "-inf"}};
	for (const auto& c : cases)
		EXPECT_EQ(printed(c.value, 3, c.spaced), c.text) << c.value;
}

TEST(NumberToString, EngineeringFormatSharesTheLetterOfAGivenPower)
{
	const OsiNumberToString number(true);
	const struct
	{
		double value;
		int exponent;
		const char* text;
	} cases[] = {{1500, 6, "0.0015 M"}, {2.5e6, 7, "2.5 M"},  {1500, 2, "1500 "},
	             {1500, 15, "1500 "},   {1500, -16, "1500 "}, {3e-15, -13, "3 f"}};
	for (const auto& c : cases)
		EXPECT_EQ(number.engineeringFormat(c.value, c.exponent, 4).text(), c.text) << c.value;
}

TEST(StringToNumber, ReadsOtherFormsAndNamesWhatIsWrong)
{
	// Suffix letters are covered by the round trip above.
	const struct
	{
		const char* text;
		double maximum, value; // maximum 0: unbounded
		const char* message;   // null: read
	} cases[] = {{" 12", 0, 12, nullptr},
	             {"3.3kx", 0, 3300, nullptr},
	             {"0x1Ak", 0, 26000, nullptr},
	             {"017", 0, 17, nullptr},
	             {"10", 10, 10, nullptr},
	             {"0", 10, 0, nullptr},
	             {"2K", 0, 0, "Invalid engineering format suffix"},
	             {"12 ", 0, 0, "Invalid engineering format suffix"},
	             {"1.5.5", 0, 0, "Invalid engineering format suffix"},
	             {"", 0, 0, "Invalid numerical format"},
	             {"k3", 0, 0, "Invalid numerical format"},
	             {nullptr, 0, 0, "Invalid numerical format"},
	             {"10.5", 10, 0, "Value greater than maximum allowable value"},
	             {"-1m", 10, 0, "Value less than minimum allowable value"}};
	for (const auto& c : cases)
	{
		SCOPED_TRACE(c.text ? c.text : "null");
		OsiStringToNumber number(0, c.maximum);
		EXPECT_EQ(number.convert(c.text), !c.message);
		EXPECT_EQ(number.valid, !c.message);
		if (c.message)
			EXPECT_STREQ(number.errorMessage, c.message);
		else
			EXPECT_DOUBLE_EQ(number.value, c.value);
	}
}

TEST(ParseNumber, FindsTheFirstNumberNotJoinedToALetter)
{
	const struct
	{
		const char* text;
		int start, end; // -1: none
		const char* mantissa;
		const char* exponent;
	} cases[] = {{"x23", 2, 3, "3", ""},   {"gain -12E+3 dB", 5, 11, "-12", "+3"},
	             {"1.5", 0, 1, "1", ""},   {"7e-x", 0, 3, "7", ""},
	             {"a1b2", -1, -1, "", ""}, {"no digits", -1, -1, "", ""}};
	for (const auto& c : cases)
	{
		OsiParseNumber parser;
		const char* start = nullptr;
		const char* end = nullptr;
		EXPECT_EQ(parser.parse(c.text, start, end), c.start >= 0) << c.text;
		EXPECT_EQ(start, c.start >= 0 ? c.text + c.start : nullptr) << c.text;
		EXPECT_EQ(c.start >= 0 ? end : nullptr, c.start >= 0 ? c.text + c.end : nullptr) << c.text;
		EXPECT_EQ(parser.mantissa, c.mantissa) << c.text;
		EXPECT_EQ(parser.exponent, c.exponent) << c.text;
	}
	EXPECT_EQ(OsiParseNumber().findAlphaNumeric(nullptr), nullptr);
}

} // namespace
