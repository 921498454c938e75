#include "vgui/vguigraphaxisticks.h"
#include "vgui/vguigraphdata.h"
#include "vgui/vguigraphlinefunction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

// a, b, the result's start value, the result.
const VGuiGraphPoint kMinimumPositiveCases[][4] = {
    {{2, 3, 4}, {1, 5, 4}, {9, 9, 9}, {1, 3, 4}},
    {{-1, 0, 2}, {3, -2, 0}, {9, 9, 9}, {3, 9, 2}},
    {{0, -1, kNaN}, {-5, 0, -1}, {7, 8, 9}, {7, 8, 9}},
};

TEST(VGuiGraphPoint, MinimumPositiveOfTakesPositivesOnly)
{
	for (const auto& c : kMinimumPositiveCases)
	{
		VGuiGraphPoint r = c[2];
		r.minimumPositiveOf(c[0], c[1]);
		EXPECT_EQ(r, c[3]) << r.x << " " << r.y << " " << r.z;
	}
}

TEST(VGuiGraphData, FillsFromAFunctionFindsItsExtremesAndGrows)
{
	const VGuiGraphLineFunction line(-1, 4, 3, -4, 0.5);
	VGuiGraphData data(5, 7, &line);
	ASSERT_EQ(data.count(), 5);
	EXPECT_EQ(data[2], VGuiGraphPoint(1, 0, 0.5));
	EXPECT_EQ(data.maximum(), VGuiGraphPoint(3, 4, 0.5));
	EXPECT_EQ(data.minimum(), VGuiGraphPoint(-1, -4, 0.5));
	EXPECT_EQ(data.minimumPositive(-1), VGuiGraphPoint(1, 2, 0.5));
	data.reSize(13, 10);
	EXPECT_EQ(data.count(), 13);
	EXPECT_EQ(data[3], VGuiGraphPoint(2, -2, 0.5)) << "kept on growing";

	// y all zero or negative: the default stands in.
	const VGuiGraphLineFunction falling(1, 0, 2, -3, 0);
	data.size(4, &falling);
	EXPECT_EQ(data.minimumPositive(0.25), VGuiGraphPoint(1, 0.25, 0.25));

	data.size(1, &line);
	EXPECT_EQ(data[0], VGuiGraphPoint(-1, 4, 0.5));
	data.size(0);
	EXPECT_EQ(data.maximum(), VGuiGraphPoint());
	EXPECT_EQ(data.minimum(), VGuiGraphPoint());
}

struct StepCase
{
	double least;
	int level;
	double step;
};

const StepCase kStepCases[] = {
    {0.07, 0, 0.1}, {0.1, 0, 0.1}, {0.11, 0, 0.2},  {0.3, 0, 0.5},  {0.3, 1, 1.0},
    {0.3, 3, 5.0},  {7.2, 0, 10},  {1e-9, 0, 1e-9}, {0.3, -1, 0.2}, {0.1, -2, 0.02},
};

TEST(VGuiGraphAxisTicks, StepsRunOneTwoFive)
{
	for (const StepCase& c : kStepCases)
		EXPECT_DOUBLE_EQ(VGuiGraphAxisTicks::niceStep(c.least, c.level), c.step) << c.least;
}

// Ranges that read well as they are, and those whose labels take out 10^n.
const double kExponentCases[][3] = {
    {0, 1, 0},      {-3.7, 12.2, 0},  {0, 9999, 0},    {0, 20000, 3}, {0, 5e-4, -6},
    {-2e7, 1e6, 6}, {1e-3, 2e-3, -3}, {0.01, 0.02, 0}, {0, 0, 0},
};

TEST(VGuiGraphAxisTicks, TakesOutEngineeringExponentsOfLongNumbers)
{
	for (const auto& c : kExponentCases)
		EXPECT_EQ(VGuiGraphAxisTicks::engineeringExponent(c[0], c[1]), int(c[2])) << c[1];
}

TEST(VGuiGraphAxisTicks, LabelsReadAsPlainNumbers)
{
	auto labels = [](const VGuiGraphAxisTicks& t) {
		std::string s;
		for (const VGuiGraphTick& tick : t.ticks)
			if (tick.major)
				s += (s.empty() ? "" : " ") + tick.label;
		return s;
	};
	EXPECT_EQ(labels(VGuiGraphAxisTicks::linear(-0.5, 1, 0.5, 0)), "-0.5 0.0 0.5 1.0");
	EXPECT_EQ(labels(VGuiGraphAxisTicks::linear(0, 20000, 5000, 3)), "0 5 10 15 20");
	EXPECT_EQ(labels(VGuiGraphAxisTicks::decades(20, 20000, 1, true)),
	          "20 50 100 200 500 1k 2k 5k 10k 20k");
	EXPECT_EQ(labels(VGuiGraphAxisTicks::decades(0.5, 2000, 2, false)), "1 100");
}

} // namespace
