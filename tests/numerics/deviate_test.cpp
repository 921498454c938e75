#include "osi/numerics/osiapproximatenormaldeviate.h"
#include "osi/numerics/osixorshiftrng.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
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
	OsiXorshiftRNG rng(2463534242u);
	EXPECT_EQ(rng.next(), 723471715u);
	EXPECT_EQ(rng.current(), 723471715u);
	OsiXorshiftRNG zero(0);
	EXPECT_EQ(zero.next(), 0u);
}

TEST(NormalDeviate, SameSeedSameSequenceAndSeedRestartsIt)
{
	OsiApproximateNormalDeviate a(2.0, 1.0, 4242);
	OsiApproximateNormalDeviate b(2.0, 1.0, 4242);
	const std::vector<double> first = draws(a, 1000);
	EXPECT_EQ(first, draws(b, 1000));
	a.seed(4242);
	EXPECT_EQ(first, draws(a, 1000));
	OsiApproximateNormalDeviate other(2.0, 1.0, 4243);
	EXPECT_NE(first, draws(other, 1000));
}

TEST(NormalDeviate, FirstDrawFollowsTheSeedingRule)
{
	// Each generator starts at one xorshift step from seed ^ its mask and
	// steps once more per draw; a state s means s / 2^31 - 1.
	auto step = [](uint32_t s) {
		s ^= s << 13;
		s ^= s >> 17;
		s ^= s << 5;
		return s;
	};
	const uint32_t seed = 99;
	double sum = 0.0;
	for (uint32_t mask : {0x7a03b3e2u, 0x51675f3du, 0x46e7b94eu})
		sum += step(step(seed ^ mask)) / 2147483648.0 - 1.0;
	OsiApproximateNormalDeviate g(4.0, 10.0, seed);
	EXPECT_NEAR(g.deviate(), sum * 2.0 + 10.0, 1e-12);
}

TEST(NormalDeviate, MillionDrawsStayInBoundsWithTheRequestedMoments)
{
	const double variance = 0.25;
	const double mean = -3.0;
	OsiApproximateNormalDeviate g(variance, mean, 20240601);
	const double scale = std::sqrt(variance);
	EXPECT_DOUBLE_EQ(g.standardDeviation(), scale);
	const int n = 1000000;
	double sum = 0.0;
	double squares = 0.0;
	for (int i = 0; i < n; ++i)
	{
		const double d = g.deviate();
		ASSERT_GE(d, mean - 3 * scale);
		ASSERT_LE(d, mean + 3 * scale);
		sum += d;
		squares += d * d;
	}
	const double sampleMean = sum / n;
	const double sampleVariance = (squares - n * sampleMean * sampleMean) / (n - 1);
	EXPECT_NEAR(sampleMean, mean, 0.002);
	EXPECT_NEAR(sampleVariance / variance, 1.0, 0.01);
}

TEST(NormalDeviate, CopiesRestartFromOneFixedState)
{
	OsiApproximateNormalDeviate a(1.0, 0.0, 1);
	OsiApproximateNormalDeviate b(1.0, 0.0, 777);
	draws(b, 17);
	OsiApproximateNormalDeviate copyOfA(a);
	OsiApproximateNormalDeviate copyOfB(b);
	EXPECT_EQ(draws(copyOfA, 100), draws(copyOfB, 100));
	EXPECT_NE(draws(a, 100), draws(copyOfA, 100));
	OsiApproximateNormalDeviate assigned(9.0, 5.0, 3);
	assigned = b;
	OsiApproximateNormalDeviate copyAgain(b);
	EXPECT_EQ(draws(assigned, 100), draws(copyAgain, 100));
}

TEST(NormalDeviate, ASeedEqualToAMaskFreezesThatGenerator)
{
	// Generator 0 gets state 0 and contributes -1 for ever, so no draw
	// reaches mean + scale.
	OsiApproximateNormalDeviate g(1.0, 0.0, 0x7a03b3e2u);
	for (int i = 0; i < 10000; ++i)
		ASSERT_LT(g.deviate(), 1.0);
}

} // namespace
