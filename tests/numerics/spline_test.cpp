#include "osi/numerics/osicubicsplineinterpolator.h"
#include "osi/numerics/osisplinevector.h"

#include <gsl/gsl_spline.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <vector>

namespace {

OsiSplineVector knotsOf(const std::vector<double>& x, const std::vector<double>& y)
{
	OsiSplineVector v(static_cast<int>(x.size()));
	std::copy(x.begin(), x.end(), v.abscissa());
	std::copy(y.begin(), y.end(), v.ordinate());
	return v;
}

double valueAt(const OsiCubicSplineInterpolator& s, double x)
{
	OsiCubicSplineContext context;
	s.findContext(x, context);
	return s.evaluateContext(x, context);
}

struct Curve
{
	const char* name;
	std::vector<double> x;
	std::function<double(double)> f;
};

std::vector<Curve> testCurves()
{
	std::vector<Curve> curves;
	curves.push_back({"sine on uneven knots",
	                  {0.0, 0.3, 0.9, 1.4, 2.2, 2.5, 3.1, 4.0, 4.4, 5.3, 6.28},
	                  [](double x) { return std::sin(x); }});
	std::vector<double> runge;
	for (int i = 0; i <= 14; ++i)
		runge.push_back(-1.0 + i / 7.0);
	curves.push_back({"Runge", runge, [](double x) { return 1.0 / (1.0 + 25.0 * x * x); }});
	curves.push_back({"three knots", {-2.0, 0.5, 4.0}, [](double x) { return x * x * x; }});
	std::mt19937 rng(11);
	std::uniform_real_distribution<double> step(0.01, 3.0);
	std::vector<double> walk{-50.0};
	for (int i = 1; i < 60; ++i)
		walk.push_back(walk.back() + step(rng));
	curves.push_back({"random spacing, exponential", walk,
	                  [](double x) { return 1e3 * std::exp(x / 100.0) * std::cos(x); }});
	return curves;
}

// GNU GSL's natural cubic spline through the same knots.
class GslNaturalSpline
{
public:
	GslNaturalSpline(const std::vector<double>& x, const std::vector<double>& y)
	: spline(gsl_spline_alloc(gsl_interp_cspline, x.size())),
	  accel(gsl_interp_accel_alloc())
	{
		gsl_spline_init(spline, x.data(), y.data(), x.size());
	}
	~GslNaturalSpline()
	{
		gsl_interp_accel_free(accel);
		gsl_spline_free(spline);
	}
	GslNaturalSpline(const GslNaturalSpline&) = delete;
	GslNaturalSpline& operator=(const GslNaturalSpline&) = delete;
	double operator()(double x) { return gsl_spline_eval(spline, x, accel); }

private:
	gsl_spline* spline;
	gsl_interp_accel* accel;
};

TEST(NaturalSpline, AgreesWithGslOverDenseSweepsBothWays)
{
	for (const Curve& curve : testCurves())
	{
		std::vector<double> y;
		for (double x : curve.x)
			y.push_back(curve.f(x));
		OsiSplineVector knots = knotsOf(curve.x, y);
		OsiCubicSplineInterpolator ours(knots);
		ASSERT_EQ(ours.count(), static_cast<int>(curve.x.size())) << curve.name;
		GslNaturalSpline gsl(curve.x, y);
		const double scale =
		    std::max(1.0, *std::max_element(y.begin(), y.end(), [](double a, double b) {
			             return std::fabs(a) < std::fabs(b);
		             }));
		const double lo = curve.x.front();
		const double hi = curve.x.back();
		const int steps = 20000;
		OsiCubicSplineContext context;
		double worst = 0.0;
		for (int pass = 0; pass < 2; ++pass)
		{
			for (int i = 0; i <= steps; ++i)
			{
				const double t = pass == 0 ? i : steps - i;
				const double x = std::min(hi, lo + (hi - lo) * t / steps);
				ours.findContext(x, context);
				worst = std::max(worst, std::fabs(ours.evaluateContext(x, context) - gsl(x)));
			}
		}
		for (size_t k = 0; k < curve.x.size(); ++k)
			worst = std::max(worst, std::fabs(valueAt(ours, curve.x[k]) - gsl(curve.x[k])));
		EXPECT_LE(worst, 1e-12 * scale) << curve.name;
	}
}

TEST(NaturalSpline, ThreeKnotsHaveTheOneSecondDerivativeAndExtrapolateTheEndCubics)
{
	// h0 = h1 = 1, s0 = 1, s1 = -1: m1 = 6 (s1 - s0) / (2 (h0 + h1)) = -3. On
	// the first interval S(x) = 1.5 x - 0.5 x^3, so S(-1) = -1; by symmetry S(3) = -1.
	OsiSplineVector knots = knotsOf({0.0, 1.0, 2.0}, {0.0, 1.0, 0.0});
	OsiCubicSplineInterpolator s(knots);
	ASSERT_EQ(s.count(), 3);
	EXPECT_EQ(s.knots()[0].m, 0.0);
	EXPECT_DOUBLE_EQ(s.knots()[1].m, -3.0);
	EXPECT_EQ(s.knots()[2].m, 0.0);
	EXPECT_DOUBLE_EQ(valueAt(s, 0.5), 0.6875);
	EXPECT_DOUBLE_EQ(valueAt(s, -1.0), -1.0);
	EXPECT_DOUBLE_EQ(valueAt(s, 3.0), -1.0);
}

TEST(FlatEndsSpline, SymmetricKnotsSolveByHand)
{
	// Rows (diag, super, rhs): (1/3, 1/6, 1), (4, 1, -12) with sub 1, and the
	// last (1/3, -, 1) with sub 1/6. Elimination: row 1 factor -3 gives
	// (3.5, 1, -15); the last row's factor -1/21 gives (2/7, 12/7). Back
	// substitution: m = (6, -6, 6).
	OsiSplineVector knots = knotsOf({0.0, 1.0, 2.0}, {0.0, 1.0, 0.0});
	OsiCubicSplineInterpolator s(OsiCubicSplineFlatEnds, knots);
	ASSERT_EQ(s.count(), 3);
	EXPECT_NEAR(s.knots()[0].m, 6.0, 1e-13);
	EXPECT_NEAR(s.knots()[1].m, -6.0, 1e-13);
	EXPECT_NEAR(s.knots()[2].m, 6.0, 1e-13);
	// Zero slope at the first knot.
	EXPECT_NEAR((valueAt(s, 1e-6) - valueAt(s, 0.0)) / 1e-6, 0.0, 1e-5);
}

TEST(FlatEndsSpline, UnevenKnotsKeepTheLastRowAsItIs)
{
	// Knots x = 0, 1, 3, 4 and y = 0, 2, 1, 3: h = 1, 2, 1 and s = 2, -1/2, 2.
	// Rows: (1/3, 1/6, 2); (6, 2, -15) with sub 1; (6, 1, 15) with sub 2; and
	// the last row from the second-last interval: (h1/3 = 2/3, -, s1 = -1/2),
	// sub 1/6. Elimination in exact fractions:
	//   row 1: factor -3, diag 11/2, rhs -21;
	//   row 2: factor -4/11, diag 58/11, rhs 249/11;
	//   row 3: factor -11/348, diag 221/348, rhs -423/348;
	// back substitution: m3 = -423/221, m2 = 1029/221, m1 = -1218/221,
	// m0 = 1935/221.
	OsiSplineVector knots = knotsOf({0.0, 1.0, 3.0, 4.0}, {0.0, 2.0, 1.0, 3.0});
	OsiCubicSplineInterpolator s(OsiCubicSplineFlatEnds, knots);
	ASSERT_EQ(s.count(), 4);
	EXPECT_NEAR(s.knots()[0].m, 1935.0 / 221, 1e-12);
	EXPECT_NEAR(s.knots()[1].m, -1218.0 / 221, 1e-12);
	EXPECT_NEAR(s.knots()[2].m, 1029.0 / 221, 1e-12);
	EXPECT_NEAR(s.knots()[3].m, -423.0 / 221, 1e-12);
}

TEST(FlatEndsSpline, HoldsTheEndOrdinatesOutsideTheKnots)
{
	OsiSplineVector knots = knotsOf({0.0, 1.0, 3.0, 4.0}, {0.5, 2.0, 1.0, 3.0});
	OsiCubicSplineInterpolator flat(OsiCubicSplineFlatEnds, knots);
	EXPECT_EQ(valueAt(flat, -10.0), 0.5);
	EXPECT_EQ(valueAt(flat, 0.0), 0.5);
	EXPECT_EQ(valueAt(flat, 4.0), 3.0);
	EXPECT_EQ(valueAt(flat, 1e9), 3.0);
	OsiCubicSplineInterpolator natural(knots);
	EXPECT_NE(valueAt(natural, -10.0), 0.5);
	EXPECT_NE(valueAt(natural, 14.0), 3.0);
}

TEST(SplineEvaluation, AnInteriorKnotIsEvaluatedOnTheIntervalToItsLeft)
{
	OsiSplineVector knots = knotsOf({0.0, 1.0, 2.0, 4.0, 5.0}, {1.0, -2.0, 0.5, 3.0, 3.0});
	for (OsiCubicSplineType type : {OsiCubicSplineNatural, OsiCubicSplineFlatEnds})
	{
		OsiCubicSplineInterpolator s(type, knots);
		for (int k = 1; k < 4; ++k)
		{
			OsiCubicSplineContext context;
			s.findContext(knots.abscissa()[k], context);
			EXPECT_EQ(context.index, k - 1);
			EXPECT_EQ(context.knot, &s.knots()[k - 1]);
			EXPECT_NEAR(s.evaluateContext(knots.abscissa()[k], context), knots.ordinate()[k],
			            1e-14);
		}
	}
}

TEST(SplineEvaluation, ContextClampsToTheEndIntervals)
{
	OsiSplineVector knots = knotsOf({0.0, 1.0, 2.0, 3.0}, {0.0, 1.0, 0.0, 1.0});
	OsiCubicSplineInterpolator s(knots);
	OsiCubicSplineContext context;
	s.findContext(-5.0, context);
	EXPECT_EQ(context.index, 0);
	s.findContext(0.0, context);
	EXPECT_EQ(context.index, 0);
	s.findContext(3.0, context);
	EXPECT_EQ(context.index, 2);
	s.findContext(99.0, context);
	EXPECT_EQ(context.index, 2);
	s.findContext(1.5, context);
	EXPECT_EQ(context.index, 1);
}

TEST(SplineEvaluation, OneContextServesAscendingDescendingAndRandomSweeps)
{
	std::vector<double> x, y;
	for (int i = 0; i < 40; ++i)
	{
		x.push_back(i * 0.7 + 0.01 * i * i);
		y.push_back(std::cos(i * 0.4));
	}
	OsiSplineVector knots = knotsOf(x, y);
	OsiCubicSplineInterpolator s(knots);
	OsiCubicSplineContext shared;
	std::vector<double> sweep;
	for (int i = 0; i <= 500; ++i)
		sweep.push_back(-1.0 + i * 0.1);
	std::vector<double> down(sweep.rbegin(), sweep.rend());
	sweep.insert(sweep.end(), down.begin(), down.end());
	std::mt19937 rng(5);
	std::uniform_real_distribution<double> anywhere(-2.0, 50.0);
	for (int i = 0; i < 500; ++i)
		sweep.push_back(anywhere(rng));
	for (double v : sweep)
	{
		s.findContext(v, shared);
		OsiCubicSplineContext fresh;
		s.findContext(v, fresh);
		ASSERT_EQ(shared.index, fresh.index) << v;
		ASSERT_EQ(s.evaluateContext(v, shared), valueAt(s, v));
	}
}

TEST(SplineInitialise, TooFewKnotsOrNoCallbackLeaveThePreviousSplineButTakeTheType)
{
	OsiSplineVector four = knotsOf({0.0, 1.0, 2.0, 3.0}, {1.0, 2.0, 0.0, 1.0});
	OsiCubicSplineInterpolator s(four);
	const double before = valueAt(s, 1.7);
	OsiSplineVector two = knotsOf({0.0, 1.0}, {1.0, 2.0});
	EXPECT_FALSE(s.initialise(OsiCubicSplineFlatEnds, 2, OsiSplineVector::initCallback, &two));
	EXPECT_FALSE(s.initialise(OsiCubicSplineFlatEnds, 4, nullptr, &four));
	EXPECT_EQ(s.count(), 4);
	EXPECT_EQ(s.type(), OsiCubicSplineFlatEnds);
	EXPECT_EQ(valueAt(s, 1.7), before);
}

TEST(SplineInitialise, AFailingKnotSourceEmptiesTheSpline)
{
	OsiSplineVector four = knotsOf({0.0, 1.0, 2.0, 3.0}, {1.0, 2.0, 0.0, 1.0});
	OsiCubicSplineInterpolator s(four);
	auto failAtTwo = [](int index, double& x, double& y, void*) {
		x = index;
		y = 0.0;
		return index == 2;
	};
	EXPECT_FALSE(s.initialise(OsiCubicSplineNatural, 4, failAtTwo, nullptr));
	EXPECT_EQ(s.count(), 0);
	EXPECT_EQ(s.knots(), nullptr);
	OsiCubicSplineContext context;
	s.findContext(1.0, context);
	EXPECT_EQ(context.knot, nullptr);
	EXPECT_TRUE(std::isnan(s.evaluateContext(1.0, context)));
}

TEST(SplineInitialise, ReplacesEverythingAndCopiesAreDeep)
{
	OsiSplineVector a = knotsOf({0.0, 1.0, 2.0}, {0.0, 1.0, 0.0});
	OsiSplineVector b = knotsOf({0.0, 2.0, 4.0, 6.0}, {5.0, 5.0, 5.0, 5.0});
	OsiCubicSplineInterpolator s(a);
	OsiCubicSplineInterpolator copy(s);
	EXPECT_TRUE(s.initialise(OsiCubicSplineNatural, b.count(), OsiSplineVector::initCallback, &b));
	EXPECT_EQ(s.count(), 4);
	EXPECT_DOUBLE_EQ(valueAt(s, 3.3), 5.0);
	EXPECT_EQ(copy.count(), 3);
	EXPECT_DOUBLE_EQ(valueAt(copy, 0.5), 0.6875);
}

TEST(SplineVector, ArraysExistOnlyForAPositiveCount)
{
	OsiSplineVector empty(0);
	EXPECT_EQ(empty.abscissa(), nullptr);
	EXPECT_EQ(empty.ordinate(), nullptr);
	OsiSplineVector negative(-3);
	EXPECT_EQ(negative.count(), 0);
	EXPECT_EQ(negative.abscissa(), nullptr);
	OsiSplineVector three(3);
	EXPECT_NE(three.abscissa(), nullptr);
	EXPECT_NE(three.ordinate(), nullptr);
}

TEST(SplineVector, CallbacksRefuseMissingArraysAndPointers)
{
	double x = 0.0, y = 0.0;
	OsiSplineVector empty(0);
	EXPECT_TRUE(OsiSplineVector::initCallback(0, x, y, nullptr));
	EXPECT_TRUE(OsiSplineVector::initCallback(0, x, y, &empty));
	OsiSplineVector v = knotsOf({1.5, 2.5}, {-1.0, 4.0});
	EXPECT_FALSE(OsiSplineVector::initCallback(1, x, y, &v));
	EXPECT_EQ(x, 2.5);
	EXPECT_EQ(y, 4.0);
	EXPECT_TRUE(OsiSplineVector::initCallback2(0, &x, nullptr, &v));
	EXPECT_TRUE(OsiSplineVector::initCallback2(0, nullptr, &y, &v));
	EXPECT_TRUE(OsiSplineVector::initCallback2(0, &x, &y, nullptr));
	EXPECT_FALSE(OsiSplineVector::initCallback2(0, &x, &y, &v));
	EXPECT_EQ(x, 1.5);
	EXPECT_EQ(y, -1.0);
	OsiSplineVector copy(v);
	copy.ordinate()[0] = 9.0;
	EXPECT_EQ(v.ordinate()[0], -1.0);
}

} // namespace
