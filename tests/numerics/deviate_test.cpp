// The approximately normal deviate: its generator's known sequence, repeatable
// draws and the moments asked for.
#include "osi/numerics/osiapproximatenormaldeviate.h"
#include "osi/numerics/osixorshiftrng.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

std::vector<double> draws(OsiApproximateNormalDeviate& g, int n)
{
	std::vector<double> v(n);
	for (double& d : v)
		d = g.deviate();
	return v;
}

TEST(XorshiftRNG, FollowsMarsagliasSequence)
{
	// Marsaglia's xorshift32 (13, 17, 5) from his example seed.
	EXPECT_EQ(OsiXorshiftRNG(2463534242u).next(), 723471715u);
	EXPECT_EQ(OsiXorshiftRNG(0).next(), 0u);
}

TEST(NormalDeviate, SeedsRepeatTheSequence)
{
	OsiApproximateNormalDeviate a(2.0, 1.0, 4242), b(2.0, 1.0, 4242), other(2.0, 1.0, 4243);
	const std::vector<double> first = draws(a, 1000);
	EXPECT_EQ(first, draws(b, 1000));
	EXPECT_NE(first, draws(other, 1000));
	a.seed(4242);
	EXPECT_EQ(first, draws(a, 1000));
}

TEST(NormalDeviate, MillionDrawsStayInBoundsWithTheRequestedMoments)
{
	const double variance = 0.25, mean = -3.0, scale = std::sqrt(variance);
	OsiApproximateNormalDeviate g(variance, mean, 20240601);
	const int n = 1000000;
	double sum = 0.0, squares = 0.0;
	for (int i = 0; i < n; ++i)
	{
		const double d = g.deviate();
		ASSERT_LE(std::fabs(d - mean), 3 * scale);
		sum += d;
		squares += d * d;
	}
	const double sampleMean = sum / n;
	EXPECT_NEAR(sampleMean, mean, 0.002);
	EXPECT_NEAR((squares - n * sampleMean * sampleMean) / (n - 1) / variance, 1.0, 0.01);
}

} // namespace
