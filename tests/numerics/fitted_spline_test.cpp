#include "osi/numerics/osiapproximatenormaldeviate.h"
#include "osi/numerics/osifittedcubicspline.h"
#include "osi/numerics/osilevenbergmarquardt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

struct Points
{
	std::vector<double> x;
	std::vector<double> y;
	int failAt = -1;

	int count() const { return static_cast<int>(x.size()); }
	static bool callback(int index, double& x, double& y, void* user)
	{
		const auto* p = static_cast<const Points*>(user);
		if (index == p->failAt)
			return true;
		x = p->x[index];
		y = p->y[index];
		return false;
	}
};

double truth(double x)
{
	return std::sin(x) + 0.3 * x;
}

// 400 points of the true curve on [0, 10] plus approximately normal noise of
// standard deviation 0.1 from a fixed seed.
struct NoisyCurve
{
	Points data;
	std::vector<double> noise;

	NoisyCurve()
	{
		OsiApproximateNormalDeviate deviate(0.01, 0.0, 12345);
		for (int i = 0; i < 400; ++i)
		{
			const double x = 10.0 * i / 399;
			noise.push_back(deviate.deviate());
			data.x.push_back(x);
			data.y.push_back(truth(x) + noise.back());
		}
	}
};

// Knots at 0, 1, ..., 10; their ordinates only seed the fit.
Points unitKnots()
{
	Points knots;
	for (int k = 0; k <= 10; ++k)
	{
		knots.x.push_back(k);
		knots.y.push_back(0.0);
	}
	return knots;
}

struct Shape
{
	double meanSlope;     // mean |S'|
	double meanCurvature; // mean |S''|
};

// The fitted curve's shape over [lo, hi], by central differences.
Shape shapeOver(const OsiFittedCubicSpline& fit, double lo, double hi)
{
	const double h = 0.05;
	OsiCubicSplineContext context;
	Shape shape{0.0, 0.0};
	int n = 0;
	for (double x = lo; x <= hi; x += h, ++n)
	{
		const double before = fit.value(x - h, context);
		const double at = fit.value(x, context);
		const double after = fit.value(x + h, context);
		shape.meanSlope += std::fabs(after - before) / (2 * h);
		shape.meanCurvature += std::fabs(after - 2 * at + before) / (h * h);
	}
	shape.meanSlope /= n;
	shape.meanCurvature /= n;
	return shape;
}

double rms(const std::vector<double>& v)
{
	double sum = 0.0;
	for (double e : v)
		sum += e * e;
	return std::sqrt(sum / v.size());
}

bool fit(OsiFittedCubicSpline& fitter, Points& data, Points& knots, int first = 0, int count = 0,
         double weight = 1.0, bool onSlope = false, OsiCubicSplineType type = OsiCubicSplineNatural)
{
	return fitter.initialise(type, data.count(), knots.count(), Points::callback, Points::callback,
	                         &data, &knots, first, count, weight, onSlope);
}

double sumOfSquares(OsiFittedCubicSpline& fitter, const double* ordinates)
{
	std::vector<double> residuals(fitter.dataCount());
	int info = 0;
	OsiFittedCubicSpline::lm_evaluate(ordinates, fitter.dataCount(), residuals.data(), &fitter,
	                                  &info);
	double sum = 0.0;
	for (double r : residuals)
		sum += r * r;
	return sum;
}

TEST(FittedSpline, ResidualsOfANoisyCurveMatchTheNoise)
{
	NoisyCurve curve;
	Points knots = unitKnots();
	for (OsiCubicSplineType type : {OsiCubicSplineNatural, OsiCubicSplineFlatEnds})
	{
		OsiFittedCubicSpline fitter;
		ASSERT_TRUE(fit(fitter, curve.data, knots, 0, 0, 1.0, false, type));
		EXPECT_EQ(fitter.knotCount(), 11);
		EXPECT_EQ(fitter.spline().count(), 11);
		EXPECT_EQ(fitter.spline().type(), type);
		std::vector<double> residuals;
		OsiCubicSplineContext context;
		double worst = 0.0;
		for (int i = 0; i < curve.data.count(); ++i)
		{
			const double x = curve.data.x[i];
			residuals.push_back(curve.data.y[i] - fitter.value(x, context));
			if (x > 0.5 && x < 9.5)
				worst = std::max(worst, std::fabs(fitter.value(x, context) - truth(x)));
		}
		EXPECT_NEAR(rms(residuals) / rms(curve.noise), 1.0, 0.1) << type;
		EXPECT_LT(worst, 0.1) << type;
	}
}

TEST(FittedSpline, DataOnASplineWithTheSameKnotsAreFittedExactly)
{
	// Data on a cubic spline with the same knots are fitted exactly.
	Points knots{{0.0, 1.0, 2.5, 4.0}, {0.0, 0.0, 0.0, 0.0}};
	Points source{{0.0, 1.0, 2.5, 4.0}, {1.0, -1.0, 2.0, 0.5}};
	OsiCubicSplineInterpolator exact(OsiCubicSplineNatural, 4, Points::callback, &source);
	Points data;
	OsiCubicSplineContext context;
	for (int i = 0; i <= 80; ++i)
	{
		const double x = i * 0.05;
		exact.findContext(x, context);
		data.x.push_back(x);
		data.y.push_back(exact.evaluateContext(x, context));
	}
	OsiFittedCubicSpline fitter;
	ASSERT_TRUE(fit(fitter, data, knots));
	for (int k = 0; k < 4; ++k)
		EXPECT_NEAR(fitter.knotOrdinate()[k], source.y[k], 1e-8);
}

TEST(FittedSpline, SlopePenaltyFlattensTheStretch)
{
	NoisyCurve curve;
	Points knots = unitKnots();
	OsiFittedCubicSpline plain;
	OsiFittedCubicSpline flattened;
	ASSERT_TRUE(fit(plain, curve.data, knots));
	ASSERT_TRUE(fit(flattened, curve.data, knots, 3, 3, 1.0, true));
	// The stretch is knots 3 .. 6.
	EXPECT_LT(shapeOver(flattened, 3.2, 5.8).meanSlope, 0.3 * shapeOver(plain, 3.2, 5.8).meanSlope);
	EXPECT_NEAR(shapeOver(flattened, 7.5, 9.5).meanSlope / shapeOver(plain, 7.5, 9.5).meanSlope,
	            1.0, 0.25);
}

TEST(FittedSpline, ChangeOfSlopePenaltyStraightensTheStretch)
{
	NoisyCurve curve;
	Points knots = unitKnots();
	OsiFittedCubicSpline plain;
	OsiFittedCubicSpline straightened;
	ASSERT_TRUE(fit(plain, curve.data, knots));
	ASSERT_TRUE(fit(straightened, curve.data, knots, 3, 3, 100.0, false));
	EXPECT_LT(shapeOver(straightened, 3.2, 5.8).meanCurvature,
	          0.1 * shapeOver(plain, 3.2, 5.8).meanCurvature);
}

TEST(FittedSpline, RunningOutOfEvaluationsStillSucceedsWithTheBestOrdinates)
{
	// The slope penalty is not smooth in the ordinates; this fit uses up its
	// (11 + 1) x 100 evaluations.
	NoisyCurve curve;
	Points knots = unitKnots();
	OsiFittedCubicSpline fitter;
	ASSERT_TRUE(fit(fitter, curve.data, knots, 3, 3, 1.0, true));
	EXPECT_EQ(fitter.fitStatus(), OsiLmTooManyCalls);
	EXPECT_EQ(fitter.spline().count(), 11);

	// No worse than where it started: the natural spline through the data,
	// at the knots.
	OsiCubicSplineInterpolator seed(OsiCubicSplineNatural, curve.data.count(), Points::callback,
	                                &curve.data);
	std::vector<double> start;
	OsiCubicSplineContext context;
	for (double x : knots.x)
	{
		seed.findContext(x, context);
		start.push_back(seed.evaluateContext(x, context));
	}
	std::vector<double> fitted(fitter.knotOrdinate(), fitter.knotOrdinate() + 11);
	EXPECT_LT(sumOfSquares(fitter, fitted.data()), sumOfSquares(fitter, start.data()));
}

TEST(FittedSpline, WithoutKnotsKeepsTheDataAndFitsNothing)
{
	NoisyCurve curve;
	Points none;
	OsiFittedCubicSpline fitter;
	EXPECT_TRUE(fit(fitter, curve.data, none));
	EXPECT_EQ(fitter.dataCount(), 400);
	EXPECT_EQ(fitter.knotCount(), 0);
	EXPECT_EQ(fitter.spline().count(), 0);
	EXPECT_EQ(fitter.fitStatus(), OsiLmImproperInput);
}

TEST(FittedSpline, ResidualsByHandIncludingTheEmptyStretchAtZero)
{
	// Data y = x at x = -1 .. 3; knots -1, 1, 3 with ordinates -2, 2, 6 make
	// the line S(x) = 2x, so |y - S| = |x|.
	Points data{{-1.0, 0.0, 1.0, 2.0, 3.0}, {-1.0, 0.0, 1.0, 2.0, 3.0}};
	Points knots{{-1.0, 1.0, 3.0}, {0.0, 0.0, 0.0}};
	const double line[] = {-2.0, 2.0, 6.0};
	auto residuals = [&](OsiFittedCubicSpline& fitter) {
		std::vector<double> r(5);
		int info = 0;
		OsiFittedCubicSpline::lm_evaluate(line, 5, r.data(), &fitter, &info);
		EXPECT_EQ(info, 0);
		return r;
	};
	// No stretch means [0, 0]: the point at 0 still pays weight x slope = 0.5 x 2.
	OsiFittedCubicSpline slope;
	ASSERT_TRUE(fit(slope, data, knots, 0, 0, 0.5, true));
	EXPECT_EQ(residuals(slope), (std::vector<double>{1.0, 1.0, 1.0, 2.0, 3.0}));
	// The change of slope of a line is zero.
	OsiFittedCubicSpline change;
	ASSERT_TRUE(fit(change, data, knots, 0, 0, 0.5, false));
	EXPECT_EQ(residuals(change), (std::vector<double>{1.0, 0.0, 1.0, 2.0, 3.0}));
	// Knots 1 .. 3 cover x = 1, 2, 3; the last data point takes its one
	// neighbour's slope.
	OsiFittedCubicSpline stretch;
	ASSERT_TRUE(fit(stretch, data, knots, 1, 1, 0.5, true));
	EXPECT_EQ(residuals(stretch), (std::vector<double>{1.0, 0.0, 2.0, 3.0, 4.0}));
}

TEST(FittedSpline, FailuresOfTheSourcesAndImproperInput)
{
	NoisyCurve curve;
	Points knots = unitKnots();
	OsiFittedCubicSpline fitter;
	Points empty;
	EXPECT_FALSE(fit(fitter, empty, knots));

	curve.data.failAt = 7;
	EXPECT_FALSE(fit(fitter, curve.data, knots));
	EXPECT_EQ(fitter.dataCount(), 400);
	curve.data.failAt = -1;

	knots.failAt = 4;
	EXPECT_FALSE(fit(fitter, curve.data, knots));
	EXPECT_EQ(fitter.dataCount(), 0);
	EXPECT_EQ(fitter.knotCount(), 0);
	knots.failAt = -1;

	// More knots than data points.
	Points few{{0.0, 1.0, 2.0}, {0.0, 1.0, 0.0}};
	EXPECT_FALSE(fit(fitter, few, knots));
	EXPECT_EQ(fitter.fitStatus(), OsiLmImproperInput);

	// Two knots make no spline.
	Points two{{0.0, 10.0}, {0.0, 0.0}};
	EXPECT_FALSE(fit(fitter, curve.data, two));
}

TEST(FittedSpline, PenaltyStretchMustLieWithinTheKnots)
{
	NoisyCurve curve;
	Points knots = unitKnots();
	OsiFittedCubicSpline fitter;
	EXPECT_FALSE(fit(fitter, curve.data, knots, 8, 3, 1.0, false));
	EXPECT_FALSE(fit(fitter, curve.data, knots, -1, 2, 1.0, false));
	EXPECT_TRUE(fit(fitter, curve.data, knots, 7, 3, 1.0, false));
}

TEST(FittedSpline, CopiesAndRefitsAreIndependent)
{
	NoisyCurve curve;
	Points knots = unitKnots();
	OsiFittedCubicSpline fitter;
	ASSERT_TRUE(fit(fitter, curve.data, knots));
	OsiFittedCubicSpline copy(fitter);
	OsiCubicSplineContext a, b;
	const double before = fitter.value(4.2, a);
	Points other = unitKnots();
	for (double& y : curve.data.y)
		y += 5.0;
	ASSERT_TRUE(fit(fitter, curve.data, other));
	EXPECT_EQ(copy.value(4.2, b), before);
	EXPECT_NEAR(fitter.value(4.2, a) - before, 5.0, 1e-6);
	fitter.free();
	EXPECT_EQ(fitter.dataCount(), 0);
	EXPECT_EQ(fitter.knotCount(), 0);
}

// The minimiser on its own, against problems with known answers.
void rosenbrock(const double* p, int, double* r, void*, int*)
{
	r[0] = 10.0 * (p[1] - p[0] * p[0]);
	r[1] = 1.0 - p[0];
}

TEST(LevenbergMarquardt, SolvesRosenbrock)
{
	double p[] = {-1.2, 1.0};
	EXPECT_GE(osiLmMinimize(2, 2, p, rosenbrock, nullptr), OsiLmSumConverged);
	EXPECT_NEAR(p[0], 1.0, 1e-10);
	EXPECT_NEAR(p[1], 1.0, 1e-10);
}

TEST(LevenbergMarquardt, ReportsImproperInputExhaustionAndBreaks)
{
	double p[] = {-1.2, 1.0};
	EXPECT_EQ(osiLmMinimize(1, 2, p, rosenbrock, nullptr), OsiLmImproperInput);
	EXPECT_EQ(osiLmMinimize(2, 0, p, rosenbrock, nullptr), OsiLmImproperInput);
	EXPECT_EQ(osiLmMinimize(2, 2, p, nullptr, nullptr), OsiLmImproperInput);
	EXPECT_EQ(p[0], -1.2);

	OsiLmControl brief;
	brief.maxcall = 1;
	EXPECT_EQ(osiLmMinimize(2, 2, p, rosenbrock, nullptr, brief), OsiLmTooManyCalls);

	int calls = 0;
	auto stopAtThird = [](const double* q, int m, double* r, void* user, int* info) {
		rosenbrock(q, m, r, nullptr, info);
		if (++*static_cast<int*>(user) == 3)
			*info = -1;
	};
	EXPECT_EQ(osiLmMinimize(2, 2, p, stopAtThird, &calls), OsiLmUserBreak);
	EXPECT_EQ(calls, 3);
}

} // namespace
