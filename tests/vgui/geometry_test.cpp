#include "vgui/vguidpiscale.h"
#include "vgui/vguifont.h"
#include "vgui/vguirect.h"

#include <gtest/gtest.h>

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

TEST(VGuiRect, NormaliseOrdersTheEdges)
{
	VGuiRect r(5, 6, 1, 2);
	r.normalise();
	EXPECT_EQ(r, VGuiRect(1, 2, 5, 6));
}

struct DpiCase
{
	double dpi;
	double global;
	double points;
	double pixels;
	int intPoints;
	int intPixels;
};

const DpiCase kDpiCases[] = {
    {72, 2, 10, 20, 10, 20},
    {72, 1.5, 3, 4.5, 3, 5},
    {144, 1, 1.25, 2.5, 7, 14},
    {96, 1, 9, 12, -3, -3}, // -4 + 0.5 truncates towards zero
};

TEST(VGuiDpiScale, ConvertsPointsAndPixels)
{
	const double saved = VGuiDpiScale::GlobalScale;
	for (const DpiCase& c : kDpiCases)
	{
		VGuiDpiScale::GlobalScale = c.global;
		const VGuiDpiScale scale(c.dpi);
		EXPECT_DOUBLE_EQ(scale.pointsToPixels(c.points), c.pixels);
		EXPECT_DOUBLE_EQ(scale.pixelsToPoints(c.pixels), c.points);
		EXPECT_EQ(scale.pointsToPixels(c.intPoints), c.intPixels) << c.dpi << " " << c.global;
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

TEST(VGuiFont, CopiesOwnTheirDescription)
{
	const VGuiFont font("Arial", 12.0, VSTGUI::kBoldFace);
	const VGuiFont copy(font);
	EXPECT_NE(copy.fontDesc(), font.fontDesc());
	EXPECT_STREQ(copy.name(), "Arial");
	EXPECT_EQ(copy.size(), 12.0);
	EXPECT_EQ(copy.style(), VSTGUI::kBoldFace);
	EXPECT_EQ(font.fontDesc()->getNbReference(), 1);
}

} // namespace
