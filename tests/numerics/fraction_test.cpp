// Fractions: values against exact 64-bit arithmetic on random operands, and
// the terms that the normalisation rule leaves.
#include "osi/numerics/osifraction.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>
#include <utility>

namespace {

std::pair<int, int> terms(const OsiFraction& f)
{
	return {f.numerator, f.denominator};
}

// a/b == c/d, exactly.
bool sameValue(long long a, long long b, long long c, long long d)
{
	return static_cast<__int128>(a) * d == static_cast<__int128>(c) * b;
}

TEST(Fraction, ArithmeticAndComparisonAgreeWithExactArithmetic)
{
	std::mt19937 random(424242);
	std::uniform_int_distribution<int> term(-2000, 2000);
	for (int i = 0; i < 20000; ++i)
	{
		const int a = term(random), c = term(random), k = term(random);
		int b = term(random), d = term(random);
		b = b ? b : 1, d = d ? d : 1;
		const OsiFraction x(a, b), y(c, d);
		SCOPED_TRACE(std::to_string(a) + "/" + std::to_string(b) + " and " + std::to_string(c) +
		             "/" + std::to_string(d) + ", " + std::to_string(k));
		ASSERT_TRUE(sameValue(x.numerator, x.denominator, a, b));
		ASSERT_TRUE(x.denominator > 0 || a == 0); // the sign lives in the numerator
		const OsiFraction sum = x + y, difference = x - y, product = x * y, withInt = x + k;
		ASSERT_TRUE(
		    sameValue(sum.numerator, sum.denominator, 1LL * a * d + 1LL * c * b, 1LL * b * d));
		ASSERT_TRUE(sameValue(difference.numerator, difference.denominator,
		                      1LL * a * d - 1LL * c * b, 1LL * b * d));
		ASSERT_TRUE(sameValue(product.numerator, product.denominator, 1LL * a * c, 1LL * b * d));
		ASSERT_TRUE(sameValue(withInt.numerator, withInt.denominator, a + 1LL * k * b, b));
		if (c != 0)
		{
			const OsiFraction quotient = x / y;
			ASSERT_TRUE(
			    sameValue(quotient.numerator, quotient.denominator, 1LL * a * d, 1LL * b * c));
		}
		const __int128 left = static_cast<__int128>(a) * d * (1LL * b * d > 0 ? 1 : -1);
		const __int128 right = static_cast<__int128>(c) * b * (1LL * b * d > 0 ? 1 : -1);
		ASSERT_EQ(x < y, left < right);
		ASSERT_EQ(x == y, left == right);
		ASSERT_EQ(x >= y, left >= right);
		ASSERT_EQ(x > k,
		          static_cast<__int128>(a) * (b > 0 ? 1 : -1) > 1LL * k * b * (b > 0 ? 1 : -1));
	}
}

TEST(Fraction, TermsFollowTheNormalisationRule)
{
	// Sums, differences and construction cancel by the remainder of the larger
	// term by the smaller; products, quotients and ints do not normalise.
	// Division by the int zero changes nothing; an int over a fraction is the
	// fraction over the int; overflow wraps instead of trapping.
	const struct
	{
		OsiFraction f;
		int numerator, denominator;
	} cases[] = {{OsiFraction(6, 4), 3, 2},
	             {OsiFraction(9, 6), 9, 6},
	             {OsiFraction(2, 4), 2, 4},
	             {OsiFraction(4, 4), 4, 4},
	             {OsiFraction(0, 5), 0, 5},
	             {OsiFraction(5, 0), 5, 0},
	             {OsiFraction(6, -4), -3, 2},
	             {OsiFraction(-3, -2), 3, 2},
	             {OsiFraction(INT_MIN, -1), INT_MIN, 1},
	             {OsiFraction(INT_MAX, INT_MIN), -INT_MAX, INT_MIN},
	             {OsiFraction(1, 2) + OsiFraction(1, 2), 4, 4},
	             {OsiFraction(1, 6) + OsiFraction(1, 3), 9, 18},
	             {OsiFraction(2, 4) + 1, 6, 4},
	             {3 - OsiFraction(2, 4), 10, 4},
	             {OsiFraction(2, 3) * OsiFraction(3, 4), 6, 12},
	             {OsiFraction(1, 2) / OsiFraction(-1, 3), 3, -2},
	             {-(OsiFraction(12) / 8), -3, 2},
	             {OsiFraction(1, 2) / 0, 1, 2},
	             {2 / OsiFraction(1, 3), 1, 6},
	             {OsiFraction(INT_MAX) * 2, -2, 1},
	             {OsiFraction(INT_MAX) + 1, INT_MIN, 1}};
	for (const auto& c : cases)
		EXPECT_EQ(terms(c.f), std::make_pair(c.numerator, c.denominator));
	OsiFraction self(2, 3);
	const OsiFraction& alias = self; // dividing by itself
	self /= alias;
	EXPECT_EQ(terms(self), std::make_pair(6, 6));
	EXPECT_TRUE(OsiFraction(1, 3) < 0.34 && 0.33 < OsiFraction(1, 3) && OsiFraction(2, 4) == 0.5);
}

} // namespace
