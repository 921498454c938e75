// The direct decimal conversion against the C library's strtod, bit for bit,
// and the whole of scan against sscanf "%lg", which it stands in for.
#include "osi/text/osidecimalnumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

namespace {

bool sameBits(double a, double b)
{
	return std::memcmp(&a, &b, sizeof a) == 0;
}

struct Text
{
	const char* text;
	bool direct; // within the direct conversion
};

// The edges of the direct conversion (2^53, powers of ten 22 and 23), signs
// and zeros, blanks, and what it leaves to the C library: more digits,
// denormals, hexadecimal, infinities and NaN, text after the number, a
// dangling exponent, no number at all.
const Text kTexts[] = {
    {"9007199254740992", true},
    {"9007199254740993", false},
    {"900719925474099.2", true},
    {"1e22", true},
    {"1e23", false},
    {"123456789e-22", true},
    {"1e-23", false},
    {"-0", true},
    {"-0.0e5", true},
    {"+.5e+1", true},
    {"5.", true},
    {"0.001", true},
    {"  42\r\n", true},
    {"3.14159265358979", true},
    {"0.30000000000000004", false},
    {"12345678901234567890", false},
    {"4.9e-324", false},
    {"2.2250738585072011e-308", false},
    {"0x1A", false},
    {"inf", false},
    {"-nan", false},
    {"1e", false},
    {"1e+", false},
    {"12abc", false},
    {"1.5.3", false},
    {".", false},
    {"-", false},
    {"", false},
    {"abc", false},
    {"1e99999999999999999999", false},
};

TEST(DecimalNumber, DirectConversionIsStrtodAndScanIsSscanf)
{
	for (const Text& t : kTexts)
	{
		SCOPED_TRACE(t.text);
		double direct = 7.0;
		ASSERT_EQ(OsiDecimalNumber::convertExactly(t.text, direct), t.direct);
		// Untouched when the text is left to the C library.
		const double reference = t.direct ? std::strtod(t.text, nullptr) : 7.0;
		EXPECT_TRUE(sameBits(direct, reference)) << direct;
		double scanned = 7.0;
		double expected = 7.0;
		EXPECT_EQ(OsiDecimalNumber::scan(t.text, scanned),
		          std::sscanf(t.text, "%lg", &expected) == 1);
		EXPECT_TRUE(sameBits(scanned, expected)) << scanned << " against " << expected;
	}
}

// Printed values of every scale in the common formats, read back: the same
// double as strtod's, whichever way the text went.
TEST(DecimalNumber, PrintedValuesReadBackAsStrtodReadsThem)
{
	const unsigned seed = 20261123;
	SCOPED_TRACE("seed " + std::to_string(seed));
	std::mt19937_64 rng(seed);
	std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
	std::uniform_int_distribution<int> scale(-30, 30);
	const char* const formats[] = {"%.17g", "%.15g", "%.6g", "%g", "%.3f", "%.9e", "%.0f"};
	char text[512];
	int direct = 0;
	constexpr int kValues = 300000;
	for (int i = 0; i < kValues; ++i)
	{
		const double value = mantissa(rng) * std::pow(10.0, scale(rng));
		std::snprintf(text, sizeof text, formats[i % 7], value);
		double read = 0.0;
		ASSERT_TRUE(OsiDecimalNumber::scan(text, read)) << text;
		ASSERT_TRUE(sameBits(read, std::strtod(text, nullptr))) << text;
		double unused = 0.0;
		direct += OsiDecimalNumber::convertExactly(text, unused);
	}
	// Most of them take the direct way, or this test would not be testing it.
	EXPECT_GT(direct, kValues / 2);
}

} // namespace
