#include "numerics/fourier_reference.h"
#include "osi/numerics/osifourier.h"

#include <fftw3.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

std::vector<OsiComplex> randomSamples(int n, unsigned seed)
{
	std::mt19937 rng(seed);
	std::uniform_real_distribution<double> uniform(-1.0, 1.0);
	std::vector<OsiComplex> v(n);
	for (OsiComplex& z : v)
		z = {uniform(rng), uniform(rng)};
	return v;
}

OsiFourier loaded(const std::vector<OsiComplex>& samples)
{
	OsiFourier f;
	f.size(static_cast<int>(samples.size()));
	std::copy(samples.begin(), samples.end(), f.data());
	return f;
}

// FFTW's transform of the samples; the inverse is scaled by 1/n to match.
std::vector<OsiComplex> fftwTransform(const std::vector<OsiComplex>& samples, bool forward)
{
	const int n = static_cast<int>(samples.size());
	fftw_complex* in = fftw_alloc_complex(n);
	fftw_complex* out = fftw_alloc_complex(n);
	fftw_plan plan =
	    fftw_plan_dft_1d(n, in, out, forward ? FFTW_FORWARD : FFTW_BACKWARD, FFTW_ESTIMATE);
	for (int i = 0; i < n; ++i)
	{
		in[i][0] = samples[i].re;
		in[i][1] = samples[i].im;
	}
	fftw_execute(plan);
	std::vector<OsiComplex> result(n);
	const double scale = forward ? 1.0 : 1.0 / n;
	for (int i = 0; i < n; ++i)
		result[i] = {out[i][0] * scale, out[i][1] * scale};
	fftw_destroy_plan(plan);
	fftw_free(in);
	fftw_free(out);
	return result;
}

// ||a - b|| / ||b|| over all samples.
double relativeError(const OsiComplex* a, const std::vector<OsiComplex>& b)
{
	double diff = 0.0;
	double norm = 0.0;
	for (size_t i = 0; i < b.size(); ++i)
	{
		diff += std::pow(a[i].re - b[i].re, 2) + std::pow(a[i].im - b[i].im, 2);
		norm += b[i].re * b[i].re + b[i].im * b[i].im;
	}
	return std::sqrt(diff / norm);
}

// Equal to the last bit, but any NaN matches any other: which operand's NaN
// an operation passes on depends on the compiler's order of operands.
bool sameBits(const OsiComplex* a, const OsiComplex* b, int n)
{
	const auto same = [](double x, double y) {
		return (std::isnan(x) && std::isnan(y)) || std::memcmp(&x, &y, sizeof x) == 0;
	};
	for (int i = 0; i < n; ++i)
	{
		if (!same(a[i].re, b[i].re) || !same(a[i].im, b[i].im))
			return false;
	}
	return true;
}

TEST(FourierTransform, MatchesFftwForEveryPowerOfTwoUpTo65536)
{
	for (int order = 0; order <= 16; ++order)
	{
		const int n = 1 << order;
		const std::vector<OsiComplex> samples = randomSamples(n, 100 + order);
		for (bool forward : {true, false})
		{
			OsiFourier f = loaded(samples);
			f.fourierTransform(forward);
			EXPECT_LE(relativeError(f.data(), fftwTransform(samples, forward)), 1e-9)
			    << "n = " << n << (forward ? " forward" : " inverse");
		}
	}
}

const char* const kInstructionNames[] = {"sse2", "avx2", "avx512"};

// Every instruction set that the transform has vectors for; those that this
// processor lacks are skipped.
class FourierInstructions : public testing::TestWithParam<OsiFourier::Instructions>
{
protected:
	void SetUp() override
	{
		if (GetParam() > OsiFourier::widestInstructions())
			GTEST_SKIP() << "not offered by this processor";
	}

	// The samples transformed with these instructions and with the plain loop
	// agree to the last bit.
	void expectSameBits(const std::vector<OsiComplex>& samples)
	{
		const int n = static_cast<int>(samples.size());
		for (bool forward : {true, false})
		{
			OsiFourier f = loaded(samples);
			std::vector<OsiComplex> expected = samples;
			f.fourierTransform(forward, GetParam());
			referenceFourierTransform(expected.data(), n, forward);
			EXPECT_TRUE(sameBits(f.data(), expected.data(), n))
			    << "n = " << n << (forward ? " forward" : " inverse");
		}
	}
};

// Orders 11 and up have passes over the whole block, one (11, 13, 17) or two
// (12, 16) at a time; below 4 the blocks are too short for the wider vectors.
TEST_P(FourierInstructions, IsBitIdenticalToThePlainLoop)
{
	for (int order : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 16, 17})
		expectSameBits(randomSamples(1 << order, order));
}

// Zeros of either sign, alone or with an infinity among them, and subnormal
// numbers: the signs of zero results, and which results are NaN, depend on
// every single operation.
TEST_P(FourierInstructions, SignedZerosInfinitiesAndSubnormalsFollowThePlainLoop)
{
	std::mt19937 rng(5);
	for (int n : {64, 4096})
	{
		std::vector<OsiComplex> zeros(n);
		for (OsiComplex& z : zeros)
			z = {rng() % 2 ? -0.0 : 0.0, rng() % 2 ? -0.0 : 0.0};
		expectSameBits(zeros);
		zeros[n / 3].im = -HUGE_VAL;
		expectSameBits(zeros);
		std::vector<OsiComplex> tiny = randomSamples(n, 8);
		for (OsiComplex& z : tiny)
			z = z * 1e-310;
		expectSameBits(tiny);
	}
}

INSTANTIATE_TEST_SUITE_P(EverySet, FourierInstructions,
                         testing::Values(OsiFourier::Instructions::sse2,
                                         OsiFourier::Instructions::avx2,
                                         OsiFourier::Instructions::avx512),
                         [](const testing::TestParamInfo<OsiFourier::Instructions>& info) {
	                         return std::string(kInstructionNames[static_cast<int>(info.param)]);
                         });

TEST(FourierTransform, ImpulseAndAllOnesTransformIntoEachOther)
{
	OsiFourier f(10);
	f.data()[0] = {1.0, 0.0};
	f.fourierTransform(true);
	for (int i = 0; i < f.size(); ++i)
	{
		ASSERT_EQ(f.data()[i].re, 1.0) << i;
		ASSERT_EQ(f.data()[i].im, 0.0) << i;
	}
	f.fourierTransform(false);
	for (int i = 0; i < f.size(); ++i)
	{
		ASSERT_EQ(f.data()[i].re, i == 0 ? 1.0 : 0.0) << i;
		ASSERT_EQ(f.data()[i].im, 0.0) << i;
	}
}

TEST(FourierTransform, ForwardThenInverseRestoresTheSamples)
{
	const std::vector<OsiComplex> samples = randomSamples(4096, 3);
	OsiFourier f = loaded(samples);
	f.fourierTransform(true);
	f.fourierTransform(false);
	EXPECT_LE(relativeError(f.data(), samples), 1e-12);
}

TEST(FourierTransform, SingleSampleIsLeftAlone)
{
	OsiFourier f;
	f.size(1);
	ASSERT_EQ(f.size(), 1);
	f.data()[0] = {0.25, -3.5};
	f.fourierTransform(true);
	EXPECT_EQ(f.data()[0], (OsiComplex{0.25, -3.5}));
	f.fourierTransform(false);
	EXPECT_EQ(f.data()[0], (OsiComplex{0.25, -3.5}));
}

TEST(FourierTransform, WithoutSamplesDoesNothing)
{
	OsiFourier f;
	f.fourierTransform(true);
	f.null();
	f.conjugate();
	EXPECT_EQ(f.data(), nullptr);
	EXPECT_EQ(f.size(), 0);
}

TEST(FourierSize, RoundsUpToAPowerOfTwo)
{
	OsiFourier f;
	f.size(1000);
	EXPECT_EQ(f.order(), 10);
	EXPECT_EQ(f.size(), 1024);
	f.size(1024);
	EXPECT_EQ(f.order(), 10);
	f.size(1025);
	EXPECT_EQ(f.order(), 11);
	f.size(3);
	EXPECT_EQ(f.size(), 4);
}

TEST(FourierSize, AnUnchangedOrderKeepsTheSamplesAndANewOneZeroesThem)
{
	OsiFourier f;
	f.size(1024);
	f.data()[5] = {1.0, 2.0};
	f.size(1024);
	EXPECT_EQ(f.data()[5], (OsiComplex{1.0, 2.0}));
	f.order(10);
	EXPECT_EQ(f.data()[5], (OsiComplex{1.0, 2.0}));
	f.order(9);
	f.order(10);
	EXPECT_EQ(f.data()[5], (OsiComplex{0.0, 0.0}));
}

TEST(FourierSize, OutOfRangeOrdersAndSizesAreIgnored)
{
	OsiFourier f(4);
	f.data()[1] = {7.0, 0.0};
	f.order(20);
	f.order(-1);
	f.size(0);
	f.size(-5);
	f.size((1 << 19) + 1);
	EXPECT_EQ(f.order(), 4);
	EXPECT_EQ(f.size(), 16);
	EXPECT_EQ(f.data()[1], (OsiComplex{7.0, 0.0}));
	f.order(19);
	EXPECT_EQ(f.size(), 1 << 19);
}

TEST(FourierConstruction, ByOrderAndByCopy)
{
	EXPECT_EQ(OsiFourier(0).data(), nullptr);
	EXPECT_EQ(OsiFourier(20).data(), nullptr);
	OsiFourier f(3);
	ASSERT_EQ(f.size(), 8);
	for (int i = 0; i < 8; ++i)
		EXPECT_EQ(f.data()[i], (OsiComplex{0.0, 0.0}));
	f.data()[2] = {1.5, -2.5};
	OsiFourier copy(f);
	EXPECT_EQ(copy.order(), 3);
	EXPECT_NE(copy.data(), f.data());
	EXPECT_EQ(copy.data()[2], (OsiComplex{1.5, -2.5}));

	// A one-sample block is of order 0, which copies as empty.
	OsiFourier single;
	single.size(1);
	EXPECT_EQ(OsiFourier(single).data(), nullptr);
}

TEST(FourierSamples, NullAndConjugate)
{
	OsiFourier f(2);
	f.data()[0] = {1.0, 2.0};
	f.data()[3] = {-3.0, -4.0};
	f.conjugate();
	EXPECT_EQ(f.data()[0], (OsiComplex{1.0, -2.0}));
	EXPECT_EQ(f.data()[3], (OsiComplex{-3.0, 4.0}));
	f.null();
	for (int i = 0; i < 4; ++i)
		EXPECT_EQ(f.data()[i], (OsiComplex{0.0, 0.0}));
}

} // namespace
