#include "osi/numerics/osifraction.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

// Exact terms, not just the value.
::testing::AssertionResult terms(const OsiFraction& f, int numerator, int denominator)
{
	if (f.numerator == numerator && f.denominator == denominator)
		return ::testing::AssertionSuccess();
	return ::testing::AssertionFailure() << f.numerator << "/" << f.denominator << " instead of "
	                                     << numerator << "/" << denominator;
}

TEST(FractionNormalisation, CancelsByTheRemainderRule)
{
	EXPECT_TRUE(terms(OsiFraction(6, 4), 3, 2));
	EXPECT_TRUE(terms(OsiFraction(12, 8), 3, 2));
	EXPECT_TRUE(terms(OsiFraction(4, 6), 2, 3));
	EXPECT_TRUE(terms(OsiFraction(9, 6), 9, 6));
	EXPECT_TRUE(terms(OsiFraction(2, 4), 2, 4));
	EXPECT_TRUE(terms(OsiFraction(4, 2), 4, 2));
	EXPECT_TRUE(terms(OsiFraction(4, 4), 4, 4));
	EXPECT_TRUE(terms(OsiFraction(0, 5), 0, 5));
	EXPECT_TRUE(terms(OsiFraction(5, 0), 5, 0));
}

TEST(FractionNormalisation, MovesTheSignToTheNumerator)
{
	EXPECT_TRUE(terms(OsiFraction(1, -2), -1, 2));
	EXPECT_TRUE(terms(OsiFraction(-6, 4), -3, 2));
	EXPECT_TRUE(terms(OsiFraction(6, -4), -3, 2));
	EXPECT_TRUE(terms(OsiFraction(-3, -2), 3, 2));
	// Reaches the extremes of int32 without overflowing.
	EXPECT_TRUE(terms(OsiFraction(INT_MIN, -1), INT_MIN, 1));
	EXPECT_TRUE(terms(OsiFraction(INT_MAX, INT_MIN), -INT_MAX, INT_MIN));
}

TEST(FractionConstruction, FromAnIntIsNotNormalised)
{
	EXPECT_TRUE(terms(OsiFraction(-3), -3, 1));
	OsiFraction f(6, 4);
	OsiFraction copy(f);
	EXPECT_TRUE(terms(copy, 3, 2));
}

TEST(FractionArithmetic, SumsAndDifferencesOfFractionsAreNormalised)
{
	EXPECT_TRUE(terms(OsiFraction(1, 2) + OsiFraction(1, 3), 5, 6));
	EXPECT_TRUE(terms(OsiFraction(1, 2) - OsiFraction(1, 3), 1, 6));
	EXPECT_TRUE(terms(OsiFraction(1, 2) + OsiFraction(1, 2), 4, 4));
	EXPECT_TRUE(terms(OsiFraction(3, 4) + OsiFraction(3, 4), 3, 2));
	OsiFraction f(1, 2);
	OsiFraction& alias = f;
	f -= alias;
	EXPECT_TRUE(terms(f, 0, 4));
	OsiFraction g(1, 6);
	g += OsiFraction(1, 3);
	EXPECT_TRUE(terms(g, 9, 18));
}

TEST(FractionArithmetic, IntsChangeTheNumeratorWithoutNormalising)
{
	EXPECT_TRUE(terms(OsiFraction(2, 4) + 1, 6, 4));
	EXPECT_TRUE(terms(1 + OsiFraction(2, 4), 6, 4));
	EXPECT_TRUE(terms(OsiFraction(1, 2) - 1, -1, 2));
	EXPECT_TRUE(terms(1 - OsiFraction(1, 3), 2, 3));
	EXPECT_TRUE(terms(3 - OsiFraction(2, 4), 10, 4));
	OsiFraction f(1, 3);
	f += 2;
	EXPECT_TRUE(terms(f, 7, 3));
	f -= 3;
	EXPECT_TRUE(terms(f, -2, 3));
}

TEST(FractionArithmetic, ProductsAndQuotientsMultiplyAcross)
{
	EXPECT_TRUE(terms(OsiFraction(2, 3) * OsiFraction(3, 4), 6, 12));
	EXPECT_TRUE(terms(OsiFraction(2, 3) * 2, 4, 3));
	EXPECT_TRUE(terms(2 * OsiFraction(2, 3), 4, 3));
	EXPECT_TRUE(terms(OsiFraction(2, 3) / OsiFraction(4, 5), 10, 12));
	EXPECT_TRUE(terms(OsiFraction(1, 2) / OsiFraction(-1, 3), 3, -2));
	EXPECT_TRUE(terms(OsiFraction(1, 2) / 3, 1, 6));
	OsiFraction f(5, 7);
	f *= OsiFraction(2, 3);
	EXPECT_TRUE(terms(f, 10, 21));
	f *= 3;
	EXPECT_TRUE(terms(f, 30, 21));
	f /= OsiFraction(2, 1);
	EXPECT_TRUE(terms(f, 30, 42));
	f /= 2;
	EXPECT_TRUE(terms(f, 30, 84));
	OsiFraction self(2, 3);
	const OsiFraction& same = self;
	self /= same;
	EXPECT_TRUE(terms(self, 6, 6));
}

TEST(FractionArithmetic, DivisionByTheIntZero)
{
	OsiFraction f(1, 2);
	f /= 0;
	EXPECT_TRUE(terms(f, 1, 2));
	EXPECT_TRUE(terms(OsiFraction(1, 2) / 0, 1, 2));
	EXPECT_TRUE(terms(0 / OsiFraction(1, 2), 1, 2));
}

TEST(FractionArithmetic, AnIntOverAFractionIsTheFractionOverTheInt)
{
	EXPECT_TRUE(terms(2 / OsiFraction(1, 3), 1, 6));
	EXPECT_TRUE(terms(3 / OsiFraction(2, 5), 2, 15));
}

TEST(FractionArithmetic, UnaryMinusNegatesAndNormalises)
{
	EXPECT_TRUE(terms(-OsiFraction(2, 4), -2, 4));
	EXPECT_TRUE(terms(-OsiFraction(3, -2), 3, 2));
	OsiFraction unnormalised(12);
	unnormalised /= 8;
	EXPECT_TRUE(terms(-unnormalised, -3, 2));
}

TEST(FractionArithmetic, OverflowWrapsInsteadOfTrapping)
{
	EXPECT_TRUE(terms(OsiFraction(INT_MAX) * 2, -2, 1));
	EXPECT_TRUE(terms(OsiFraction(INT_MAX) + 1, INT_MIN, 1));
	EXPECT_TRUE(terms(-OsiFraction(INT_MIN), INT_MIN, 1));
}

TEST(FractionComparison, ByValueWithFractionsIntsAndDoublesEitherWay)
{
	EXPECT_TRUE(OsiFraction(2, 4) == OsiFraction(1, 2));
	EXPECT_FALSE(OsiFraction(2, 4) != OsiFraction(1, 2));
	EXPECT_TRUE(OsiFraction(1, 2) < OsiFraction(2, 3));
	EXPECT_TRUE(OsiFraction(2, 3) > OsiFraction(1, 2));
	EXPECT_TRUE(OsiFraction(1, 2) <= OsiFraction(2, 4));
	EXPECT_TRUE(OsiFraction(1, 2) >= OsiFraction(2, 4));
	EXPECT_TRUE(OsiFraction(6, 2) == 3);
	EXPECT_TRUE(3 == OsiFraction(6, 2));
	EXPECT_TRUE(OsiFraction(1, 2) != 1);
	EXPECT_TRUE(1 > OsiFraction(1, 2));
	EXPECT_TRUE(1 >= OsiFraction(1, 1));
	EXPECT_TRUE(OsiFraction(-1, 2) < 0);
	EXPECT_TRUE(0 <= OsiFraction(0, 3));
	EXPECT_TRUE(OsiFraction(1, 2) == 0.5);
	EXPECT_TRUE(0.5 == OsiFraction(2, 4));
	EXPECT_TRUE(OsiFraction(1, 3) < 0.34);
	EXPECT_TRUE(0.33 < OsiFraction(1, 3));
	EXPECT_TRUE(OsiFraction(1, 3) > 0.33);
	EXPECT_TRUE(0.34 >= OsiFraction(1, 3));
	EXPECT_TRUE(OsiFraction(1, 3) <= 1.0 / 3);
	EXPECT_TRUE(0.25 != OsiFraction(1, 3));
}

} // namespace
