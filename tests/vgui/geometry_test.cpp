#include "vgui/vguidpiscale.h"
#include "vgui/vguilinesegment.h"
#include "vgui/vguiparallelogram.h"
#include "vgui/vguirect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

struct RectCase
{
	VGuiRect a;
	VGuiRect b;
	bool join;
	VGuiRect expected;
};

const RectCase kRectCases[] = {
    {{0, 0, 0, 0}, {1, 1, 5, 5}, true, {1, 1, 5, 5}},
    {{1, 1, 5, 5}, {0, 0, 0, 0}, true, {1, 1, 5, 5}},
    {{0, 0, 2, 2}, {3, 3, 4, 4}, true, {0, 0, 4, 4}},
    {{0, 0, 0, 0}, {2, 2, 2, 2}, true, {0, 0, 0, 0}},
    {{0, 0, 2, 2}, {3, 3, 4, 4}, false, {0, 0, 0, 0}},
    {{0, 0, 2, 2}, {2, 0, 4, 2}, false, {2, 0, 2, 2}},
    {{0, 0, 2, 2}, {2, 2, 4, 4}, false, {0, 0, 0, 0}},
    {{0, 0, 4, 4}, {1, -1, 3, 2}, false, {1, 0, 3, 2}},
};

TEST(VGuiRect, JoinsAndIntersectsWithTheEmptinessRule)
{
	for (const RectCase& c : kRectCases)
	{
		const VGuiRect r = c.join ? c.a.join(c.b) : c.a.intersect(c.b);
		EXPECT_EQ(r, c.expected) << (c.join ? "join " : "intersect ") << c.a.left << "," << c.a.top
		                         << " " << c.b.left << "," << c.b.top;
	}
}

// dpi, global scale, points, pixels, then an int number of points and its pixels.
const double kDpiCases[][6] = {
    {72, 2, 10, 20, 10, 20},
    {72, 1.5, 3, 4.5, 3, 5},
    {144, 1, 1.25, 2.5, 7, 14},
    {96, 1, 9, 12, -3, -3}, // -4 + 0.5 truncates towards zero
};

TEST(VGuiDpiScale, ConvertsPointsAndPixels)
{
	const double saved = VGuiDpiScale::GlobalScale;
	for (const auto& c : kDpiCases)
	{
		VGuiDpiScale::GlobalScale = c[1];
		const VGuiDpiScale scale(c[0]);
		EXPECT_DOUBLE_EQ(scale.pointsToPixels(c[2]), c[3]);
		EXPECT_DOUBLE_EQ(scale.pixelsToPoints(c[3]), c[2]);
		EXPECT_EQ(scale.pointsToPixels(int(c[4])), int(c[5])) << c[0] << " " << c[1];
	}
	VGuiDpiScale::GlobalScale = saved;
}

TEST(VGuiDpiScale, ClosestIndex)
{
	const double values[] = {72, 96, 120, 144};
	const double ties[] = {90, 102};
	const VGuiDpiScale scale(96);
	EXPECT_EQ(scale.closestIndex(values, 4), 1);
	EXPECT_EQ(scale.closestIndex(ties, 2), 0);
	EXPECT_EQ(VGuiDpiScale(1000).closestIndex(values, 4), 3);
	EXPECT_EQ(scale.closestIndex(values + 2, 1), 0);
	EXPECT_EQ(scale.closestIndex(values, 0), -1);
	EXPECT_EQ(scale.closestIndex(nullptr, 4), -1);
}

bool inside(const VGuiRect& r, const VGuiPoint& p)
{
	return p.x >= r.left && p.x <= r.right && p.y >= r.top && p.y <= r.bottom;
}

// Where q lies along the segment, as the parameter of start + t·(end - start).
double parameterOf(const VGuiLineSegment& s, const VGuiPoint& q)
{
	const VGuiPoint d = s.end - s.start;
	const VGuiPoint w = q - s.start;
	return (w.x * d.x + w.y * d.y) / (d.x * d.x + d.y * d.y);
}

// Of a finely sampled random segment, exactly the clipped part lies inside.
TEST(VGuiLineSegment, ClipMatchesSampling)
{
	std::mt19937 rng(11);
	std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
	constexpr int kSamples = 2000;
	constexpr double kMargin = 1e-9;
	for (int n = 0; n < 2000; ++n)
	{
		VGuiRect rect(coordinate(rng), coordinate(rng), coordinate(rng), coordinate(rng));
		rect.normalise();
		const VGuiLineSegment segment({coordinate(rng), coordinate(rng)},
		                              {coordinate(rng), coordinate(rng)});
		VGuiLineSegment clipped = segment;
		const bool visible = clipped.clip(rect);
		double t0 = 2;
		double t1 = -1;
		if (visible)
		{
			ASSERT_TRUE(inside(rect, clipped.start) && inside(rect, clipped.end));
			EXPECT_TRUE(!inside(rect, segment.start) || clipped.start == segment.start);
			EXPECT_TRUE(!inside(rect, segment.end) || clipped.end == segment.end);
			t0 = parameterOf(segment, clipped.start);
			t1 = parameterOf(segment, clipped.end);
			ASSERT_LE(t0, t1);
		}
		for (int i = 0; i <= kSamples; ++i)
		{
			const double t = double(i) / kSamples;
			if (std::fabs(t - t0) < kMargin || std::fabs(t - t1) < kMargin)
				continue;
			const VGuiPoint p = segment.start + (segment.end - segment.start) * t;
			ASSERT_EQ(inside(rect, p), t > t0 && t < t1) << "segment " << n << " at " << t;
		}
	}
}

struct ClipCase
{
	VGuiLineSegment segment;
	bool visible;
	VGuiLineSegment expected;
};

const ClipCase kClipCases[] = {
    {{{0, -5}, {0, 15}}, true, {{0, 0}, {0, 10}}}, // along the left edge
    {{{-5, 5}, {5, -5}}, true, {{0, 0}, {0, 0}}},  // touches a corner only
    {{{2, 3}, {2, 3}}, true, {{2, 3}, {2, 3}}},    {{{11, 3}, {11, 3}}, false, {}},
    {{{std::nan(""), 2}, {5, 5}}, false, {}},
};

TEST(VGuiLineSegment, ClipCasesAndCrossings)
{
	for (const ClipCase& c : kClipCases)
	{
		VGuiLineSegment s = c.segment;
		EXPECT_EQ(s.clip(VGuiRect(0, 0, 10, 10)), c.visible) << c.segment.start.x;
		EXPECT_TRUE(!c.visible || (s.start == c.expected.start && s.end == c.expected.end))
		    << s.start.x << "," << s.start.y << " " << s.end.x << "," << s.end.y;
	}
	const VGuiLineSegment diagonal({0, 0}, {4, 4});
	VGuiPoint at;
	EXPECT_TRUE(diagonal.intersect(VGuiLineSegment({0, 4}, {4, 0}), at));
	EXPECT_EQ(at, VGuiPoint(2, 2));
	EXPECT_TRUE(diagonal.intersect(VGuiLineSegment({4, 4}, {5, 0}), at));
	EXPECT_EQ(at, VGuiPoint(4, 4));
	EXPECT_FALSE(diagonal.intersect(VGuiLineSegment({5, 0}, {3, 2}), at));
	EXPECT_FALSE(diagonal.intersect(VGuiLineSegment({1, 1}, {3, 3}), at)); // parallel
	EXPECT_TRUE(diagonal.intersect(VGuiRect(3, 0, 5, 3)));
	EXPECT_FALSE(diagonal.intersect(VGuiRect(3, 0, 5, 2.5)));
}

// An affine map keeps affine combinations of the corners.
TEST(VGuiParallelogram, MapsAffineCombinationsOntoTheOther)
{
	std::mt19937 rng(3);
	std::uniform_real_distribution<double> coordinate(-50.0, 50.0);
	const auto randomPoint = [&] { return VGuiPoint(coordinate(rng), coordinate(rng)); };
	for (int n = 0; n < 100; ++n)
	{
		const VGuiParallelogram from(randomPoint(), randomPoint(), randomPoint());
		const VGuiParallelogram onto(randomPoint(), randomPoint(), randomPoint());
		const VGuiPoint w = randomPoint() * 0.1;
		const auto combine = [&](const VGuiParallelogram& p) {
			return p.origin * (1 - w.x - w.y) + p.uEnd * w.x + p.vEnd * w.y;
		};
		VGuiPoint p = combine(from);
		ASSERT_TRUE(from.mapPoint(p, onto));
		EXPECT_NEAR(p.x, combine(onto).x, 1e-8);
		EXPECT_NEAR(p.y, combine(onto).y, 1e-8);
	}
	// The unit square onto a square turned by a quarter about (10, 10).
	const VGuiParallelogram square(VGuiRect(0, 0, 1, 1));
	const VGuiParallelogram turned({10, 10}, {10, 12}, {8, 10});
	VGuiParallelogram image;
	ASSERT_TRUE(square.mapRect(VGuiRect(0.5, 0, 1, 0.5), turned, image));
	EXPECT_EQ(image.extent(), VGuiRect(9, 11, 10, 12));
	const VGuiParallelogram flat({0, 0}, {1, 1}, {2, 2});
	EXPECT_FALSE(flat.mapRect(VGuiRect(0, 0, 1, 1), turned, image));
	EXPECT_EQ(image.extent(), VGuiRect(9, 11, 10, 12));
}

} // namespace
