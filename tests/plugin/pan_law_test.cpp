// The pan law: its published gains, the shape between them, the direct
// segment against the search, and the far channel's filter against the
// analytic response of its design.
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

TEST(PanLaw, PublishedGainsAndTheShapeBetweenThem)
{
	const std::pair<double, double> published[] = {
	    {-90.0, 1.25527334}, {-30.0, 1.0}, {0.0, 0.56811975}, {30.0, 0.0}, {90.0, -0.6000523}};
	for (const auto& [angle, gain] : published)
		EXPECT_EQ(evalOne(angle), gain) << angle;
	// Beyond the ends the end segments go on.
	EXPECT_NEAR(evalOne(95.0), -0.6026, 1e-4);
	// Falls monotonically from -80 to +90, with its maximum near -80.
	for (double a = -79.75; a <= 90.0; a += 0.25)
		EXPECT_LT(evalOne(a), evalOne(a - 0.25)) << "at " << a;
	for (double a = -90.0; a < -80.0; a += 0.25)
		EXPECT_LT(evalOne(a), evalOne(-80.0) + 1e-4) << "at " << a;
}

TEST(PanLaw, EvaluatesInPlaceAndLeavesOutputAloneForNoAngles)
{
	std::vector<double> angles = {-90, -87.5, 12.5, -12.5, 90, 44, -95, 95};
	std::vector<double> expected;
	for (double a : angles)
		expected.push_back(evalOne(a));
	VeloraLaw::spline_eval(static_cast<int>(angles.size()), angles.data(), angles.data());
	EXPECT_EQ(angles, expected);
	double out = 7.0;
	VeloraLaw::spline_eval(0, angles.data(), &out);
	VeloraLaw::spline_eval(-3, angles.data(), &out);
	EXPECT_EQ(out, 7.0);
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

// The law's own filter: a bilinear first-order low-pass at 1 kHz, which passes
// a constant whole and is silent after a reset.
TEST(LowPass, TheLawsFilterHasTheResponseOfItsDesign)
{
	const double fs = 48000.0;
	for (double f : {0.0, 100.0, 1000.0, 8000.0})
	{
		VeloraLaw law(fs);
		LowPassFilter& filter = law.filter();
		double peak = 0.0;
		for (int i = 0; i < 48000; ++i)
		{
			const double v = filter.y(f == 0.0 ? 1.0 : std::sin(2 * M_PI * f * i / fs));
			if (i > 24000)
				peak = std::max(peak, std::fabs(v));
		}
		const double ratio = std::tan(M_PI * f / fs) / std::tan(M_PI * 1000.0 / fs);
		EXPECT_NEAR(peak, 1.0 / std::sqrt(1.0 + ratio * ratio), 2e-3) << f << " Hz";
		filter.reset();
		for (int i = 0; i < 100; ++i)
			EXPECT_EQ(filter.y(0.0), 0.0) << f << " Hz";
	}
}

} // namespace
} // namespace Vst
} // namespace Steinberg
