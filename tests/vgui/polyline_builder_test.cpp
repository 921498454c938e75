#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxpolylinebuilder.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Points = std::vector<VGuiPoint>;

// One step of a drawing: a move, or a line with or without the clip rectangle.
struct Step
{
	enum Kind
	{
		Move,
		Line,
		ClippedLine
	} kind;
	VGuiPoint p;
};

struct BuilderCase
{
	const char* name;
	int capacity;
	std::vector<Step> steps;
	std::vector<Points> expected;
};

const VGuiRect kClip(0, 0, 10, 10);

const BuilderCase kCases[] = {
    {"move to the end point keeps the line",
     5,
     {{Step::Move, {1, 1}}, {Step::Line, {2, 2}}, {Step::Move, {2, 2}}, {Step::Line, {3, 1}}},
     {{{1, 1}, {2, 2}, {3, 1}}}},
    {"a move elsewhere starts another; single points are dropped",
     5,
     {{Step::Move, {1, 1}},
      {Step::Line, {2, 2}},
      {Step::Move, {5, 5}},
      {Step::Move, {6, 6}},
      {Step::Line, {7, 6}},
      {Step::Line, {7, 6}},
      {Step::Move, {9, 9}}},
     {{{1, 1}, {2, 2}}, {{6, 6}, {7, 6}}}},
    {"a full buffer takes no more points",
     3,
     {{Step::Line, {0, 0}}, {Step::Line, {1, 0}}, {Step::Line, {2, 0}}, {Step::Line, {3, 0}}},
     {{{0, 0}, {1, 0}, {2, 0}}}},
    {"capacity 0 builds nothing", 0, {{Step::Move, {0, 0}}, {Step::Line, {1, 0}}}, {}},
    {"leaving and re-entering makes two polylines",
     10,
     {{Step::Move, {5, 5}},
      {Step::ClippedLine, {15, 5}},
      {Step::ClippedLine, {15, 8}},
      {Step::ClippedLine, {5, 8}},
      {Step::ClippedLine, {5, 9}}},
     {{{5, 5}, {10, 5}}, {{10, 8}, {5, 8}, {5, 9}}}},
    {"crossing from outside to outside",
     10,
     {{Step::Move, {-5, 5}},
      {Step::ClippedLine, {15, 5}},
      {Step::ClippedLine, {5, -5}},
      {Step::ClippedLine, {-5, -5}}},
     {{{0, 5}, {10, 5}}}},
    {"a path that never enters builds nothing",
     10,
     {{Step::Move, {-5, -5}}, {Step::ClippedLine, {-5, 15}}, {Step::ClippedLine, {15, 15}}},
     {}},
    {"entering through a corner's edge and staying inside",
     10,
     {{Step::ClippedLine, {-2, 12}}, {Step::ClippedLine, {2, 8}}, {Step::ClippedLine, {4, 4}}},
     {{{0, 10}, {2, 8}, {4, 4}}}},
};

std::vector<Points> take(OsiList& list)
{
	std::vector<Points> result;
	while (void* element = list.removeFirst())
	{
		auto* polyline = static_cast<VGuiGfxPolyline*>(element);
		Points points;
		for (int i = 0; i < polyline->count(); ++i)
			points.push_back(polyline->point(i));
		result.push_back(points);
		EXPECT_EQ(polyline->referenceCount(), 1);
		polyline->release();
	}
	return result;
}

TEST(VGuiGfxPolylineBuilder, BuildsTheExpectedPolylines)
{
	const VGuiColour green(0, 255, 0);
	for (const BuilderCase& c : kCases)
	{
		VGuiGfxPolylineBuilder builder(c.capacity, green, green, VSTGUI::kLineSolid, 1.0);
		for (const Step& step : c.steps)
		{
			if (step.kind == Step::Move)
				builder.moveTo(step.p);
			else if (step.kind == Step::Line)
				builder.lineTo(step.p);
			else
				builder.lineTo(step.p, kClip);
		}
		OsiList list;
		builder.putPolylines(list, false);
		EXPECT_EQ(take(list), c.expected) << c.name;
	}
}

TEST(VGuiGfxPolylineBuilder, PutsAtTheFrontOrTheEnd)
{
	VGuiGfxPolyline* existing =
	    new VGuiGfxPolyline(1, VGuiColour(), VGuiColour(), VSTGUI::kLineSolid, 1.0);
	const Points a = {{0, 0}, {1, 0}};
	const Points b = {{5, 0}, {6, 0}};
	for (bool atFront : {true, false})
	{
		VGuiGfxPolylineBuilder builder(4, VGuiColour(1, 2, 3), VGuiColour(), VSTGUI::kLineOnOffDash,
		                               2.5);
		builder.lineTo(a[0]);
		builder.lineTo(a[1]);
		builder.moveTo(b[0]);
		builder.lineTo(b[1]);
		OsiList list;
		list.append(existing);
		builder.putPolylines(list, atFront);
		builder.putPolylines(list, atFront); // nothing left to hand on
		auto* first = static_cast<VGuiGfxPolyline*>(atFront ? list.firstNode()->element()
		                                                    : list.lastNode()->element());
		EXPECT_EQ(first->lineColour(), VGuiColour(1, 2, 3));
		EXPECT_EQ(first->lineStyle(), VSTGUI::kLineOnOffDash);
		EXPECT_EQ(first->lineWidth(), 2.5);
		list.remove(existing);
		const std::vector<Points> expected =
		    atFront ? std::vector<Points>{b, a} : std::vector<Points>{a, b};
		EXPECT_EQ(take(list), expected);
	}
	existing->release();
}

} // namespace
