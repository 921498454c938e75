// The pan law: its table, the segment search, extrapolation and the filter.
#include "velora_law.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace Steinberg {
namespace Vst {
namespace {

double evalOne(double u)
{
	double out = 0.0;
	VeloraLaw::spline_eval(1, &u, &out);
	return out;
}

TEST(PanLaw, TellingValuesAreTheKnotValues)
{
	EXPECT_EQ(evalOne(-90.0), 1.25527334);
	EXPECT_EQ(evalOne(-30.0), 1.0);
	EXPECT_EQ(evalOne(0.0), 0.56811975);
	EXPECT_EQ(evalOne(30.0), 0.0);
	EXPECT_EQ(evalOne(90.0), -0.6000523);
}

TEST(PanLaw, CurveShape)
{
	// Falls monotonically from -80 to +90, with its maximum near -80.
	double previous = evalOne(-80.0);
	for (double a = -79.75; a <= 90.0; a += 0.25)
	{
		const double g = evalOne(a);
		EXPECT_LT(g, previous) << "at " << a;
		previous = g;
	}
	for (double a = -90.0; a < -80.0; a += 0.25)
		EXPECT_LT(evalOne(a), evalOne(-80.0) + 1e-4) << "at " << a;
}

TEST(PanLaw, ExtrapolatesWithTheEndSegments)
{
	const int last = VeloraLaw::n - 1;
	const double above = VeloraLaw::y[last] + 5 * VeloraLaw::b[last] + 25 * VeloraLaw::c[last] +
	                     125 * VeloraLaw::d[last];
	EXPECT_NEAR(evalOne(95.0), above, 1e-15);
	EXPECT_NEAR(evalOne(95.0), -0.6026, 1e-4);
	const double below =
	    VeloraLaw::y[0] - 5 * VeloraLaw::b[0] + 25 * VeloraLaw::c[0] - 125 * VeloraLaw::d[0];
	EXPECT_NEAR(evalOne(-95.0), below, 1e-15);
}

TEST(PanLaw, NonPositiveCountLeavesOutputUntouched)
{
	double in[2] = {0.0, 30.0};
	double out[2] = {7.0, 8.0};
	VeloraLaw::spline_eval(0, in, out);
	VeloraLaw::spline_eval(-3, in, out);
	EXPECT_EQ(out[0], 7.0);
	EXPECT_EQ(out[1], 8.0);
}

TEST(PanLaw, EvaluatesInPlaceAndAcrossSegments)
{
	std::vector<double> angles = {-90, -87.5, 12.5, -12.5, 90, 44, -95, 95};
	std::vector<double> expected;
	for (double a : angles)
		expected.push_back(evalOne(a));
	VeloraLaw::spline_eval(static_cast<int>(angles.size()), angles.data(), angles.data());
	for (size_t i = 0; i < angles.size(); ++i)
		EXPECT_NEAR(angles[i], expected[i], 1e-12) << i;
}

TEST(PanLaw, TableIsACubicSplineThroughItsKnots)
{
	// Each segment's cubic, evaluated at the next knot, meets that knot's value.
	for (int i = 0; i + 1 < VeloraLaw::n; ++i)
	{
		const double h = VeloraLaw::x[i + 1] - VeloraLaw::x[i];
		const double end =
		    ((VeloraLaw::d[i] * h + VeloraLaw::c[i]) * h + VeloraLaw::b[i]) * h + VeloraLaw::y[i];
		EXPECT_NEAR(end, VeloraLaw::y[i + 1], 1e-6) << "segment " << i;
		// First derivatives agree too: it is a spline, not just a chain of cubics.
		const double slope = (3 * VeloraLaw::d[i] * h + 2 * VeloraLaw::c[i]) * h + VeloraLaw::b[i];
		EXPECT_NEAR(slope, VeloraLaw::b[i + 1], 1e-6) << "segment " << i;
	}
}

// The directly computed segment must be the one spline_eval picks for a lone
// angle, bit for bit, including knots, both tie rules and the ends.
TEST(PanLaw, DirectSegmentMatchesTheSearch)
{
	std::vector<double> angles;
	for (int i = 0; i < VeloraLaw::n; ++i)
	{
		const double k = VeloraLaw::x[i];
		angles.insert(angles.end(), {k, std::nextafter(k, -1e9), std::nextafter(k, 1e9)});
	}
	std::mt19937_64 rng(7);
	std::uniform_real_distribution<double> dist(-120.0, 120.0);
	for (int i = 0; i < 100000; ++i)
		angles.push_back(dist(rng));
	angles.insert(angles.end(), {1e300, -1e300, std::numeric_limits<double>::infinity(),
	                             -std::numeric_limits<double>::infinity(), -0.0});
	for (double a : angles)
	{
		const double direct = VeloraLaw::evalSegment(VeloraLaw::segmentOf(a), a);
		const double searched = evalOne(a);
		EXPECT_EQ(std::memcmp(&direct, &searched, sizeof(double)), 0) << "at " << a;
	}
	EXPECT_TRUE(std::isnan(evalOne(std::nan(""))));
}

TEST(LowPass, ConvergesToConstantInputAndStaysSilentAfterReset)
{
	LowPassFilter filter(48000.0, 1000.0);
	double out = 0.0;
	for (int i = 0; i < 20000; ++i)
		out = filter.y(1.0);
	EXPECT_NEAR(out, 1.0, 1e-12);
	filter.reset();
	for (int i = 0; i < 100; ++i)
		EXPECT_EQ(filter.y(0.0), 0.0);
}

TEST(LowPass, CutoffIsMinus3dBAtOneKilohertz)
{
	const double fs = 48000.0;
	for (double f : {100.0, 1000.0, 8000.0})
	{
		LowPassFilter filter(fs, 1000.0);
		double peak = 0.0;
		for (int i = 0; i < 48000; ++i)
		{
			const double v = filter.y(std::sin(2 * M_PI * f * i / fs));
			if (i > 24000)
				peak = std::max(peak, std::fabs(v));
		}
		const double expected =
		    1.0 /
		    std::sqrt(1.0 + std::pow(std::tan(M_PI * f / fs) / std::tan(M_PI * 1000.0 / fs), 2));
		EXPECT_NEAR(peak, expected, 2e-3) << f << " Hz";
	}
}

TEST(LowPass, LawBuildsItsFilterAtOneKilohertz)
{
	VeloraLaw law(44100.0);
	LowPassFilter reference(44100.0, 1000.0);
	for (int i = 0; i < 64; ++i)
	{
		const double s = (i % 7) - 3.0;
		EXPECT_EQ(law.filter().y(s), reference.y(s));
	}
}

} // namespace
} // namespace Vst
} // namespace Steinberg
