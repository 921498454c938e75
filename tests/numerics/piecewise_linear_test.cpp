// The piecewise-linear fit: hand-worked solutions of its normal equations,
// refusals, and evaluation between and beyond the knots.
#include "osi/numerics/osipiecewiselinearfitter.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// Knot abscissae when asked with a null y, data points otherwise.
struct Source
{
	std::vector<double> knots;
	std::vector<OsiPiecewiseLinearPoint> points;
	int failAt = -1;

	static bool callback(int index, double* x, double* y, void* user)
	{
		auto* s = static_cast<Source*>(user);
		if (index == s->failAt && y)
			return true;
		if (!y)
		{
			*x = s->knots[index];
			return false;
		}
		*x = s->points[index].x;
		*y = s->points[index].y;
		return false;
	}
};

Source handWorkedCase()
{
	// Points before the first knot, at the last knot and beyond it count nowhere.
	return Source{{0.0, 1.0, 2.0},
	              {{1.0, 0.0},
	               {2.0, 0.5},
	               {3.0, 1.0},
	               {2.0, 1.25},
	               {1.0, 1.5},
	               {0.0, 1.75},
	               {100.0, 2.0},
	               {-7.0, 5.0},
	               {50.0, -1.0}}};
}

TEST(PiecewiseLinearFitter, SolvesTheNormalEquationsWithItsEliminationRule)
{
	// Each row's diagonal loses the previous super-diagonal before back
	// substitution (textbook elimination would give the line 1, 3, -1).
	Source source = handWorkedCase();
	OsiPiecewiseLinearFitter fitter;
	ASSERT_TRUE(
	    fitter.initialise(3, static_cast<int>(source.points.size()), Source::callback, &source));
	ASSERT_EQ(fitter.count(), 3);
	EXPECT_NEAR(fitter.knots()[0].y, 868.0 / 1125, 1e-14);
	EXPECT_NEAR(fitter.knots()[1].y, 932.0 / 225, 1e-14);
	EXPECT_NEAR(fitter.knots()[2].y, -52.0 / 15, 1e-14);
}

TEST(PiecewiseLinearFitter, RefusesTooFewKnotsOrPointsAndAFailingSource)
{
	Source source = handWorkedCase();
	OsiPiecewiseLinearFitter fitter;
	EXPECT_FALSE(fitter.initialise(1, 9, Source::callback, &source));
	EXPECT_FALSE(fitter.initialise(3, 2, Source::callback, &source));
	EXPECT_FALSE(fitter.initialise(3, 9, nullptr, &source));
	ASSERT_TRUE(fitter.initialise(3, 9, Source::callback, &source));
	source.failAt = 4;
	EXPECT_FALSE(fitter.initialise(3, 9, Source::callback, &source));
	EXPECT_EQ(fitter.count(), 0);
	EXPECT_EQ(fitter.knots(), nullptr);
}

TEST(PiecewiseLinearFitter, EvaluatesSegmentsAndExtendsTheEnds)
{
	Source source = handWorkedCase();
	OsiPiecewiseLinearFitter fitter(3, 9, Source::callback, &source);
	const double y0 = fitter.knots()[0].y, y1 = fitter.knots()[1].y, y2 = fitter.knots()[2].y;
	OsiPiecewiseLinearContext context;
	auto at = [&](double x) {
		fitter.findContext(x, context);
		return fitter.evaluateContext(x, context);
	};
	EXPECT_DOUBLE_EQ(at(0.25), y0 + 0.25 * (y1 - y0));
	EXPECT_DOUBLE_EQ(at(1.0), y1);
	EXPECT_DOUBLE_EQ(at(1.5), (y1 + y2) / 2);
	EXPECT_DOUBLE_EQ(at(3.0), y2 + (y2 - y1));
	EXPECT_DOUBLE_EQ(at(-1.0), y0 - (y1 - y0));
}

} // namespace
