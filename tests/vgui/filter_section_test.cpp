// The filter sections against closed forms: the peaking section is a
// second-order transfer function evaluated with std::complex on the
// imaginary axis; the shelf is checked through its symmetries.
#include "vgui/vguiparametricfiltersection.h"
#include "vgui/vguishelvingfiltersection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <random>

namespace velora_test {
namespace {

// H(s) = (s^2 + s w0 / qz + w0^2) / (s^2 + s w0 / qp + w0^2) at s = j 2 pi f,
// where the zeros' Q over the poles' Q is G^-1 for a boost and G for a cut
// (|H| = G at the centre either way).
double peaking(double f, double centre, double q, double gain)
{
	const double w0 = 2.0 * M_PI * centre;
	const std::complex<double> s(0.0, 2.0 * M_PI * f);
	const double qz = gain > 1.0 ? q / gain : q;
	const double qp = gain > 1.0 ? q : q * gain;
	return std::abs((s * s + s * w0 / qz + w0 * w0) / (s * s + s * w0 / qp + w0 * w0));
}

TEST(FilterSections, PeakingMagnitudeIsTheSecondOrderSectionsOrFlatAtRandomPoints)
{
	std::mt19937 random(20261123);
	std::uniform_real_distribution<double> logUniform(0.0, 1.0);
	for (int i = 0; i < 2000; ++i)
	{
		const double centre = 20.0 * std::pow(1000.0, logUniform(random));
		const double f = 10.0 * std::pow(2000.0, logUniform(random));
		const double q = 0.1 + 14.9 * logUniform(random);
		const double gain = std::pow(10.0, (logUniform(random) - 0.5) * 2.4);
		const VGuiParametricFilterSection section(q, centre, gain);
		const double expected = peaking(f, centre, q, gain);
		EXPECT_NEAR(section.magnitude(f, false), expected, 1e-9 * expected);
		EXPECT_NEAR(section.magnitude(f, true), peaking(f, centre, q, 1.0 / gain),
		            1e-9 * expected + 1e-9);
		EXPECT_EQ(VGuiParametricFilterSection(0.0, centre, gain).magnitude(f, false), gain)
		    << "a Q of 0 is flat";
	}
}

TEST(FilterSections, ShelvesMirrorEachOtherAndInvertToTheirReciprocal)
{
	std::mt19937 random(7);
	std::uniform_real_distribution<double> unit(0.0, 1.0);
	for (int i = 0; i < 1000; ++i)
	{
		const double corner = 20.0 * std::pow(1000.0, unit(random));
		const double f = 10.0 * std::pow(2000.0, unit(random));
		const double slope = 18.0 * unit(random) - 9.0;
		const VGuiShelvingFilterSection high(corner, slope, true);
		const VGuiShelvingFilterSection low(corner, -slope, false);
		const double h = high.magnitude(f, false);
		// A low shelf is a high shelf seen through f -> corner^2 / f.
		EXPECT_NEAR(low.magnitude(corner * corner / f, false), h, 1e-9 * h);
		EXPECT_NEAR(high.magnitude(f, true) * h, 1.0, 1e-9);
		// Flat on the far side, slope decades of gain per decade on the shelf.
		if (f <= corner)
			EXPECT_EQ(h, 1.0);
		else
			EXPECT_NEAR(std::log10(h), slope * std::log10(f / corner), 1e-9);
	}
}

TEST(FilterSections, DescribeThemselvesWithThreeSignificantDigits)
{
	string_ext<char> text;
	VGuiParametricFilterSection(2.0, 1000.0, 2.0).description(text);
	VGuiShelvingFilterSection(1234.5, -3.0, false).description(text);
	EXPECT_EQ(text, ",Q=2,Fo=1kHz,G=6.02dB,Fo=1.23kHz,Slope=-3");
}

} // namespace
} // namespace velora_test
