// Cubic splines against GSL: the natural spline against GSL's own, the
// flat-ended one's second derivatives against GSL's tridiagonal solver.
#include "osi/numerics/osicubicsplineinterpolator.h"
#include "osi/numerics/osisplinevector.h"

#include <gsl/gsl_linalg.h>
#include <gsl/gsl_spline.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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

// n random knots: increasing abscissae with uneven gaps, ordinates of any sign.
void randomKnots(std::mt19937_64& random, int n, std::vector<double>& x, std::vector<double>& y)
{
	std::uniform_real_distribution<double> gap(0.01, 3.0), level(-100.0, 100.0);
	x.assign(1, level(random));
	y.assign(1, level(random));
	while (int(x.size()) < n)
	{
		x.push_back(x.back() + gap(random));
		y.push_back(level(random));
	}
}

TEST(NaturalSpline, AgreesWithGslOverDenseSweepsBothWays)
{
	std::mt19937_64 random(11);
	for (int n : {3, 4, 11, 60})
	{
		std::vector<double> x, y;
		randomKnots(random, n, x, y);
		OsiSplineVector knots = knotsOf(x, y);
		const OsiCubicSplineInterpolator ours(knots);
		gsl_spline* gsl = gsl_spline_alloc(gsl_interp_cspline, size_t(n));
		gsl_interp_accel* accel = gsl_interp_accel_alloc();
		gsl_spline_init(gsl, x.data(), y.data(), size_t(n));
		// One context for sweeps up, down and to random places.
		OsiCubicSplineContext context;
		std::vector<double> sweep;
		for (int i = 0; i <= 4000; ++i)
			sweep.push_back(x.front() + (x.back() - x.front()) * std::min(1.0, i / 4000.0));
		sweep.insert(sweep.end(), sweep.rbegin(), sweep.rend());
		sweep.insert(sweep.end(), x.begin(), x.end());
		std::uniform_real_distribution<double> anywhere(x.front(), x.back());
		for (int i = 0; i < 500; ++i)
			sweep.push_back(anywhere(random));
		double worst = 0.0;
		for (double at : sweep)
		{
			ours.findContext(at, context);
			worst = std::max(worst, std::fabs(ours.evaluateContext(at, context) -
			                                  gsl_spline_eval(gsl, at, accel)));
		}
		EXPECT_LE(worst, 1e-10) << n << " knots";
		gsl_interp_accel_free(accel);
		gsl_spline_free(gsl);
	}
}

// Flat ends: zero slope at the first knot, natural interior rows, and a last row from the
// second-last interval (as saved splines have always had it).
std::vector<double> flatEndsByGsl(const std::vector<double>& x, const std::vector<double>& y)
{
	const size_t n = x.size();
	auto h = [&](size_t i) { return x[i + 1] - x[i]; };
	auto s = [&](size_t i) { return (y[i + 1] - y[i]) / h(i); };
	std::vector<double> diag(n), super(n - 1), sub(n - 1), rhs(n), m(n);
	diag[0] = h(0) / 3, super[0] = h(0) / 6, rhs[0] = s(0);
	for (size_t i = 1; i + 1 < n; ++i)
	{
		sub[i - 1] = h(i - 1), diag[i] = 2 * (h(i - 1) + h(i)), super[i] = h(i);
		rhs[i] = 6 * (s(i) - s(i - 1));
	}
	sub[n - 2] = h(n - 2) / 6, diag[n - 1] = h(n - 3) / 3, rhs[n - 1] = s(n - 3);
	gsl_vector_view d = gsl_vector_view_array(diag.data(), n),
	                e = gsl_vector_view_array(super.data(), n - 1),
	                f = gsl_vector_view_array(sub.data(), n - 1),
	                b = gsl_vector_view_array(rhs.data(), n),
	                solution = gsl_vector_view_array(m.data(), n);
	EXPECT_EQ(
	    gsl_linalg_solve_tridiag(&d.vector, &e.vector, &f.vector, &b.vector, &solution.vector), 0);
	return m;
}

TEST(FlatEndsSpline, SecondDerivativesSolveTheSystemAsGslDoes)
{
	std::mt19937_64 random(29);
	for (int n : {3, 4, 5, 17, 80})
	{
		std::vector<double> x, y;
		randomKnots(random, n, x, y);
		OsiSplineVector knots = knotsOf(x, y);
		const OsiCubicSplineInterpolator ours(OsiCubicSplineFlatEnds, knots);
		const std::vector<double> m = flatEndsByGsl(x, y);
		const double scale =
		    1e-9 * (1 + *std::max_element(m.begin(), m.end(), [](double a, double b) {
			            return std::fabs(a) < std::fabs(b);
		            }));
		for (int i = 0; i < n; ++i)
			EXPECT_NEAR(ours.knots()[i].m, m[size_t(i)], std::fabs(scale))
			    << n << " knots, knot " << i;
		// Outside the knots the end ordinates hold.
		EXPECT_EQ(valueAt(ours, x.front() - 10), y.front());
		EXPECT_EQ(valueAt(ours, x.back() + 1e9), y.back());
	}
}

TEST(SplineEvaluation, AKnotBelongsToTheIntervalOnItsLeftAndTheEndsExtend)
{
	OsiSplineVector knots = knotsOf({0.0, 1.0, 2.0, 4.0, 5.0}, {1.0, -2.0, 0.5, 3.0, 3.0});
	const OsiCubicSplineInterpolator s(knots);
	const struct
	{
		double x;
		int index;
	} cases[] = {{-5.0, 0}, {0.0, 0}, {1.0, 0}, {1.5, 1}, {2.0, 1}, {4.0, 2}, {5.0, 3}, {99.0, 3}};
	for (const auto& c : cases)
	{
		OsiCubicSplineContext context;
		s.findContext(c.x, context);
		EXPECT_EQ(context.index, c.index) << c.x;
		EXPECT_EQ(context.knot, &s.knots()[c.index]) << c.x;
	}
	// Through (0, 0), (1, 1), (2, 0) the end cubics are 1.5 x - 0.5 x^3 (mirrored): -1 at -1, 3.
	OsiSplineVector three = knotsOf({0.0, 1.0, 2.0}, {0.0, 1.0, 0.0});
	const OsiCubicSplineInterpolator natural(three);
	EXPECT_DOUBLE_EQ(valueAt(natural, -1.0), -1.0);
	EXPECT_DOUBLE_EQ(valueAt(natural, 3.0), -1.0);
}

TEST(SplineInitialise, RefusalsKeepOrEmptyTheSplineAndCopiesAreDeep)
{
	OsiSplineVector four = knotsOf({0.0, 1.0, 2.0, 3.0}, {1.0, 2.0, 0.0, 1.0});
	OsiSplineVector two = knotsOf({0.0, 1.0}, {1.0, 2.0});
	OsiCubicSplineInterpolator s(four);
	const OsiCubicSplineInterpolator copy(s);
	const double before = valueAt(s, 1.7);
	// Too few knots or no callback: the previous spline stays, the type is taken.
	EXPECT_FALSE(s.initialise(OsiCubicSplineFlatEnds, 2, OsiSplineVector::initCallback, &two));
	EXPECT_FALSE(s.initialise(OsiCubicSplineFlatEnds, 4, nullptr, &four));
	EXPECT_EQ(s.type(), OsiCubicSplineFlatEnds);
	EXPECT_EQ(valueAt(s, 1.7), before);
	// A failing knot source empties it.
	auto failAtTwo = [](int index, double& x, double& y, void*) {
		return x = y = index, index == 2;
	};
	EXPECT_FALSE(s.initialise(OsiCubicSplineNatural, 4, failAtTwo, nullptr));
	EXPECT_EQ(s.count(), 0);
	EXPECT_TRUE(std::isnan(valueAt(s, 1.0)));
	EXPECT_EQ(valueAt(copy, 1.7), before);
}

} // namespace
