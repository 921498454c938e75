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

// FFTW's transform of the samples (two doubles each, as fftw_complex), in place; the
// inverse is scaled by 1/n to match.
std::vector<OsiComplex> fftwTransform(std::vector<OsiComplex> samples, bool forward)
{
	const int n = static_cast<int>(samples.size());
	auto* data = reinterpret_cast<fftw_complex*>(samples.data());
	fftw_plan plan =
	    fftw_plan_dft_1d(n, data, data, forward ? FFTW_FORWARD : FFTW_BACKWARD, FFTW_ESTIMATE);
	fftw_execute(plan);
	fftw_destroy_plan(plan);
	for (OsiComplex& z : samples)
		z *= forward ? 1.0 : 1.0 / n;
	return samples;
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
		if (!same(a[i].re, b[i].re) || !same(a[i].im, b[i].im))
			return false;
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

// Every instruction set the transform has vectors for; those this processor lacks skip.
class FourierInstructions : public testing::TestWithParam<OsiFourier::Instructions>
{
protected:
	void SetUp() override
	{
		if (GetParam() > OsiFourier::widestInstructions())
			GTEST_SKIP() << "not offered by this processor";
	}

	// These instructions and the plain loop agree to the last bit.
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

// From order 11 whole-block passes go one (11, 13, 17) or two (12, 16) at a time.
// Signed zeros, an infinity and subnormals: zero signs and NaNs depend on every operation.
TEST_P(FourierInstructions, IsBitIdenticalToThePlainLoop)
{
	for (int order : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 16, 17})
		expectSameBits(randomSamples(1 << order, order));
	std::mt19937 rng(5);
	for (int n : {64, 4096})
	{
		std::vector<OsiComplex> zeros(n), tiny = randomSamples(n, 8);
		for (OsiComplex& z : zeros)
			z = {rng() % 2 ? -0.0 : 0.0, rng() % 2 ? -0.0 : 0.0};
		expectSameBits(zeros);
		zeros[n / 3].im = -HUGE_VAL;
		expectSameBits(zeros);
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

TEST(FourierSize, RoundsUpToAPowerOfTwoAndIgnoresWhatIsOutOfRange)
{
	const struct
	{
		int size, order; // order < 0: set by size
		int expectedOrder;
		bool keepsSamples;
	} cases[] = {{1024, -1, 10, true},  {0, 10, 10, true},  {1000, -1, 10, true},
	             {1025, -1, 11, false}, {3, -1, 2, false},  {0, 20, 10, true},
	             {0, -1, 10, true},     {-5, -1, 10, true}, {(1 << 19) + 1, -1, 10, true},
	             {0, 19, 19, false}};
	for (const auto& c : cases)
	{
		OsiFourier f(10);
		f.data()[1] = {7.0, 2.0};
		if (c.order >= 0 || c.size == 0)
			f.order(c.order);
		else
			f.size(c.size);
		EXPECT_EQ(f.order(), c.expectedOrder) << c.size << " " << c.order;
		EXPECT_EQ(f.data()[1], (c.keepsSamples ? OsiComplex{7.0, 2.0} : OsiComplex{0.0, 0.0}));
	}
}

} // namespace
