#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxpolylinebuilder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

// Steps: 'm' moves, 'l' draws a line, 'c' a line clipped to (0, 0, 10, 10).
// Polylines are written as their points, separated by "|".
struct BuilderCase
{
	int capacity;
	const char* steps;
	const char* polylines;
};

const BuilderCase kCases[] = {
    // A move to the end point keeps the line going.
    {5, "m1,1 l2,2 m2,2 l3,1", "1,1 2,2 3,1"},
    // A move elsewhere starts another; lone points and repeats are dropped.
    {5, "m1,1 l2,2 m5,5 m6,6 l7,6 l7,6 m9,9", "1,1 2,2 | 6,6 7,6"},
    {3, "l0,0 l1,0 l2,0 l3,0", "0,0 1,0 2,0"},
    {0, "m0,0 l1,0", ""},
    // Leaving and coming back makes two polylines.
    {10, "m5,5 c15,5 c15,8 c5,8 c5,9", "5,5 10,5 | 10,8 5,8 5,9"},
    {10, "m-5,5 c15,5 c5,-5 c-5,-5", "0,5 10,5"},
    {10, "m-5,-5 c-5,15 c15,15", ""},
    {10, "c-2,12 c2,8 c4,4", "0,10 2,8 4,4"},
};

// The polylines of the list in the cases' notation, each released.
std::string take(OsiList& list)
{
	std::ostringstream out;
	while (auto* polyline = static_cast<VGuiGfxPolyline*>(list.removeFirst()))
	{
		for (int i = 0; i < polyline->count(); ++i)
			out << (i             ? " "
			        : out.tellp() ? " | "
			                      : "")
			    << polyline->point(i).x << "," << polyline->point(i).y;
		EXPECT_EQ(polyline->referenceCount(), 1);
		polyline->release();
	}
	return out.str();
}

TEST(VGuiGfxPolylineBuilder, BuildsTheExpectedPolylines)
{
	for (const BuilderCase& c : kCases)
	{
		VGuiGfxPolylineBuilder builder(c.capacity, VGuiColour(), VGuiColour(), VSTGUI::kLineSolid,
		                               1.0);
		std::istringstream steps(c.steps);
		char kind;
		char comma;
		VGuiPoint p;
		while (steps >> kind >> p.x >> comma >> p.y)
		{
			if (kind == 'm')
				builder.moveTo(p);
			else if (kind == 'l')
				builder.lineTo(p);
			else
				builder.lineTo(p, VGuiRect(0, 0, 10, 10));
		}
		OsiList list;
		builder.putPolylines(list, false);
		EXPECT_EQ(take(list), c.polylines) << c.steps;
	}
}

} // namespace
