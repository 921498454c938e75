// Least-squares spline fits: unpenalised against GSL's linear least squares,
// penalised by the shape they give, and the minimiser on its own.
#include "osi/numerics/osifittedcubicspline.h"
#include "osi/numerics/osilevenbergmarquardt.h"

#include <gsl/gsl_multifit.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
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

// n points of the true curve on [0, 10] plus seeded normal noise (deviation 0.1).
Points noisyCurve(int n)
{
	std::mt19937_64 random(7);
	std::normal_distribution<double> noise(0.0, 0.1);
	Points data;
	for (int i = 0; i < n; ++i)
	{
		data.x.push_back(10.0 * i / (n - 1));
		data.y.push_back(truth(data.x.back()) + noise(random));
	}
	return data;
}

// Mean |S'| (order 1) or |S''| (order 2) of the fit over [lo, hi], by central differences.
double roughness(const OsiFittedCubicSpline& fit, int order, double lo, double hi)
{
	const double h = 0.05;
	OsiCubicSplineContext context;
	double sum = 0.0;
	int n = 0;
	for (double x = lo; x <= hi; x += h, ++n)
	{
		const double before = fit.value(x - h, context), after = fit.value(x + h, context);
		sum += order == 1 ? std::fabs(after - before) / (2 * h)
		                  : std::fabs(after - 2 * fit.value(x, context) + before) / (h * h);
	}
	return sum / n;
}

bool fit(OsiFittedCubicSpline& fitter, Points& data, Points& knots, int first = 0, int count = 0,
         double weight = 1.0, bool onSlope = false, OsiCubicSplineType type = OsiCubicSplineNatural)
{
	return fitter.initialise(type, data.count(), knots.count(), Points::callback, Points::callback,
	                         &data, &knots, first, count, weight, onSlope);
}

// The spline through a unit ordinate at one knot: the columns of the linear problem.
double basis(OsiCubicSplineType type, const Points& knots, int column, double x)
{
	Points unit{knots.x, std::vector<double>(knots.x.size(), 0.0)};
	unit.y[size_t(column)] = 1.0;
	const OsiCubicSplineInterpolator spline(type, unit.count(), Points::callback, &unit);
	OsiCubicSplineContext context;
	spline.findContext(x, context);
	return spline.evaluateContext(x, context);
}

TEST(FittedSpline, WithoutPenaltyItIsGslsLinearLeastSquares)
{
	Points data = noisyCurve(60);
	Points knots{{0.0, 1.5, 3.0, 5.0, 6.0, 8.5, 10.0}, std::vector<double>(7, 0.0)};
	for (OsiCubicSplineType type : {OsiCubicSplineNatural, OsiCubicSplineFlatEnds})
	{
		std::vector<double> columns(60 * 7), covariance(7 * 7), best(7);
		for (size_t i = 0; i < 60; ++i)
			for (size_t k = 0; k < 7; ++k)
				columns[i * 7 + k] = basis(type, knots, int(k), data.x[i]);
		gsl_matrix_view a = gsl_matrix_view_array(columns.data(), 60, 7),
		                c = gsl_matrix_view_array(covariance.data(), 7, 7);
		gsl_vector_view y = gsl_vector_view_array(data.y.data(), 60),
		                b = gsl_vector_view_array(best.data(), 7);
		gsl_multifit_linear_workspace* work = gsl_multifit_linear_alloc(60, 7);
		double chisq = 0;
		ASSERT_EQ(gsl_multifit_linear(&a.matrix, &y.vector, &b.vector, &c.matrix, &chisq, work), 0);
		gsl_multifit_linear_free(work);
		OsiFittedCubicSpline fitter;
		ASSERT_TRUE(fit(fitter, data, knots, 0, 0, 1.0, false, type));
		EXPECT_EQ(fitter.spline().type(), type);
		for (size_t k = 0; k < 7; ++k)
			EXPECT_NEAR(fitter.knotOrdinate()[k], best[k], 1e-6) << type << " " << k;
	}
}

TEST(FittedSpline, PenaltiesFlattenOrStraightenTheirStretchOnly)
{
	// The stretch is knots 3 .. 6.
	Points curve = noisyCurve(400);
	Points knots = noisyCurve(11); // at 0, 1, ..., 10; the ordinates seed the fit
	OsiFittedCubicSpline plain, flattened, straightened;
	ASSERT_TRUE(fit(plain, curve, knots));
	ASSERT_TRUE(fit(flattened, curve, knots, 3, 3, 1.0, true));
	ASSERT_TRUE(fit(straightened, curve, knots, 3, 3, 100.0, false));
	EXPECT_LT(roughness(flattened, 1, 3.2, 5.8), 0.3 * roughness(plain, 1, 3.2, 5.8));
	EXPECT_NEAR(roughness(flattened, 1, 7.5, 9.5) / roughness(plain, 1, 7.5, 9.5), 1.0, 0.25);
	EXPECT_LT(roughness(straightened, 2, 3.2, 5.8), 0.1 * roughness(plain, 2, 3.2, 5.8));
	// The slope penalty is not smooth in the ordinates: that fit uses up its
	// (11 + 1) x 100 evaluations and still makes its spline.
	EXPECT_EQ(flattened.fitStatus(), OsiLmTooManyCalls);
	EXPECT_EQ(flattened.spline().count(), 11);
}

TEST(FittedSpline, FailuresOfTheSourcesAndImproperInput)
{
	Points curve = noisyCurve(400);
	Points knots = noisyCurve(11); // at 0, 1, ..., 10; the ordinates seed the fit
	OsiFittedCubicSpline fitter;
	Points empty;
	EXPECT_FALSE(fit(fitter, empty, knots));

	for (Points* source : {&curve, &knots})
	{
		source->failAt = 4;
		EXPECT_FALSE(fit(fitter, curve, knots));
		source->failAt = -1;
	}
	// More knots than data points; two knots make no spline.
	Points few{{0.0, 1.0, 2.0}, {0.0, 1.0, 0.0}};
	EXPECT_FALSE(fit(fitter, few, knots));
	EXPECT_EQ(fitter.fitStatus(), OsiLmImproperInput);
	Points two{{0.0, 10.0}, {0.0, 0.0}};
	EXPECT_FALSE(fit(fitter, curve, two));
	// The penalty's stretch must lie within the knots.
	EXPECT_FALSE(fit(fitter, curve, knots, 8, 3, 1.0, false));
	EXPECT_FALSE(fit(fitter, curve, knots, -1, 2, 1.0, false));
	EXPECT_TRUE(fit(fitter, curve, knots, 7, 3, 1.0, false));
}

// The minimiser on its own, against problems with known answers.
void rosenbrock(const double* p, int, double* r, void*, int*)
{
	r[0] = 10.0 * (p[1] - p[0] * p[0]);
	r[1] = 1.0 - p[0];
}

TEST(LevenbergMarquardt, SolvesRosenbrockAndReportsImproperInputExhaustionAndBreaks)
{
	double solved[] = {-1.2, 1.0};
	EXPECT_GE(osiLmMinimize(2, 2, solved, rosenbrock, nullptr), OsiLmSumConverged);
	EXPECT_NEAR(solved[0], 1.0, 1e-10);
	EXPECT_NEAR(solved[1], 1.0, 1e-10);
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
