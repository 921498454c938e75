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
#include <utility>
#include <vector>

namespace {

bool sameBits(double a, double b)
{
	return std::memcmp(&a, &b, sizeof a) == 0;
}

// The edges of the direct conversion (2^53, powers of ten 22 and 23), signs and
// blanks, then texts it leaves to the C library. The fuzz target holds scan to
// sscanf on any other text.
const std::pair<bool, std::vector<const char*>> kTexts[] = {
    {true,
     {"9007199254740992", "900719925474099.2", "1e22", "123456789e-22", "-0", "+.5e+1", "5.",
      "  42\r\n"}},
    {false,
     {"9007199254740993", "1e23", "1e-23", "1e", "12abc", ".", "-", "1e99999999999999999999"}}};

TEST(DecimalNumber, DirectConversionIsStrtodAndScanIsSscanf)
{
	for (const auto& [direct, texts] : kTexts)
		for (const char* text : texts)
		{
			SCOPED_TRACE(text);
			double converted = 7.0, scanned = 7.0, expected = 7.0;
			ASSERT_EQ(OsiDecimalNumber::convertExactly(text, converted), direct);
			// Untouched when the text is left to the C library.
			EXPECT_TRUE(sameBits(converted, direct ? std::strtod(text, nullptr) : 7.0))
			    << converted;
			EXPECT_EQ(OsiDecimalNumber::scan(text, scanned),
			          std::sscanf(text, "%lg", &expected) == 1);
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
