// Hit tests, button states and groups of the graphic objects.
#include "offscreen_canvas.h"

#include "vgui/vguigfxbutton.h"
#include "vgui/vguigfxbuttongroup.h"
#include "vgui/vguigfxgroup.h"
#include "vgui/vguigfxline.h"
#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxpolylinebuilder.h"
#include "vgui/vguigfxrectangle.h"
#include "vgui/vguigfxtext.h"

#include <gtest/gtest.h>

#include <vector>

namespace velora_test {
namespace {

using VSTGUI::kLineSolid;

const VGuiColour kInk(0, 0, 0);

struct HitCase
{
	double margin;
	double width;
	VGuiRect probe; // a point when right and bottom are equal to left and top
	bool in;
};

// The extent is (10, 10, 20, 20).
const HitCase kHits[] = {
    {0, 0, {10, 10, 10, 10}, true},
    {0, 0, {19.99, 19.99, 19.99, 19.99}, true},
    {0, 0, {20, 15, 20, 15}, false}, // right edge
    {0, 0, {15, 20, 15, 20}, false}, // bottom edge
    {0, 0, {9.99, 15, 9.99, 15}, false},
    {1, 2, {8, 8, 8, 8}, true}, // grown by the margin and half the width
    {1, 2, {21.9, 21.9, 21.9, 21.9}, true},
    {1, 2, {22, 15, 22, 15}, false},
    {0, 0, {20, 10, 30, 20}, true},  // sharing an edge: a line is not empty
    {0, 0, {20, 20, 30, 30}, false}, // sharing a corner only
    {1, 0, {21, 0, 30, 30}, true},
};

TEST(VGuiGfxObject, HitTestsLeaveTheRightAndBottomEdgesOutside)
{
	for (const HitCase& c : kHits)
	{
		VGuiGfxRectangle r({10, 10, 20, 20}, kInk, kInk, kLineSolid, c.width);
		r.setMargin(c.margin);
		const bool point = c.probe.left == c.probe.right && c.probe.top == c.probe.bottom;
		EXPECT_EQ(point ? r.isIn(c.probe.topLeft()) : r.isIn(c.probe), c.in)
		    << c.probe.left << "," << c.probe.top << " margin " << c.margin;
	}
}

TEST(VGuiGfxText, HitTestFollowsTheTurnedBox)
{
	OffscreenCanvas canvas(10, 10);
	// A wide text turned upwards about its top-left corner at (100, 100):
	// it stands on the anchor's right, above it.
	VGuiGfxText text("a long line of text", VGuiFont("Arial", 12, 0), {100, 100}, kInk, kInk,
	                 VSTGUI::kLeftText, 90);
	text.findExtent(canvas.get());
	const VGuiRect e = text.extent();
	EXPECT_GT(e.height(), 3 * e.width());
	EXPECT_NEAR(e.left, 100, 0.01);
	EXPECT_NEAR(e.bottom, 100, 0.01);
	EXPECT_TRUE(text.isIn(VGuiPoint(102, 98)));
	EXPECT_FALSE(text.isIn(VGuiPoint(120, 102))); // where the text would be, unturned
	text.moveBy({-50, 0});
	EXPECT_TRUE(text.isIn(VGuiPoint(52, 98)));
}

struct ButtonCase
{
	int state;
	bool inside, pressed, hit;
	bool insideAfter, pressedAfter, changed;
};

const ButtonCase kButtonCases[] = {
    {0, true, true, false, true, true, false}, // no state
    {VGuiGfxPointerMoved, false, false, true, true, false, true},
    {VGuiGfxPointerMoved, true, true, true, true, true, false},
    {VGuiGfxPointerMoved, true, true, false, false, true, true},
    {VGuiGfxPointerLeft, true, true, true, false, true, true},
    {VGuiGfxPointerLeft, false, false, true, false, false, false},
    {VGuiGfxButtonPressed, true, false, true, true, true, true},
    {VGuiGfxButtonPressed, true, true, true, true, true, false},
    {VGuiGfxButtonPressed, false, true, false, false, false, true},
    {VGuiGfxButtonPressed, false, false, false, false, false, false},
    {VGuiGfxButtonPressed, true, true, false, false, false, true},
    {VGuiGfxButtonReleased, true, true, true, true, false, true},
    {VGuiGfxButtonReleased, true, false, true, true, false, false},
    {VGuiGfxButtonReleased, false, false, true, true, false, true},
};

TEST(VGuiGfxButton, StateTransitionsAndRepaint)
{
	const VGuiRect extent(10, 10, 20, 20);
	for (const ButtonCase& c : kButtonCases)
	{
		VGuiGfxButton button(extent, kInk, kInk, c.inside, c.pressed);
		VGuiRect repaint;
		const VGuiPoint pointer = c.hit ? VGuiPoint(15, 15) : VGuiPoint(25, 15);
		const bool changed = button.state(static_cast<VGuiGfxState>(c.state), pointer, repaint);
		SCOPED_TRACE(::testing::Message() << "state " << c.state << " inside " << c.inside
		                                  << " pressed " << c.pressed << " hit " << c.hit);
		EXPECT_EQ(changed, c.changed);
		EXPECT_EQ(button.inside(), c.insideAfter);
		EXPECT_EQ(button.pressed(), c.pressedAfter);
		EXPECT_EQ(repaint, c.changed ? extent : VGuiRect());
	}
	VGuiGfxButton button(extent, kInk, kInk, false, false);
	VGuiRect repaint(0, 0, 5, 5);
	EXPECT_TRUE(button.state(VGuiGfxPointerMoved, {12, 12}, repaint));
	EXPECT_EQ(repaint, VGuiRect(0, 0, 20, 20));
}

TEST(VGuiGfxButtonGroup, ButtonsShareTheGroupsHitTest)
{
	VGuiGfxButtonGroup group;
	group.append(new VGuiGfxButton({0, 0, 10, 10}, kInk, kInk, false, false));
	group.append(new VGuiGfxLine({0, 0}, {30, 5}, kInk, kLineSolid, 1)); // has no state
	group.append(new VGuiGfxButton({20, 0, 30, 10}, kInk, kInk, false, false));
	group.findExtent();
	VGuiRect repaint;
	EXPECT_FALSE(group.state(VGuiGfxPointerMoved, {35, 5}, repaint));
	// Between the buttons, inside neither, but inside the group: both light up.
	EXPECT_TRUE(group.state(VGuiGfxPointerMoved, {15, 5}, repaint));
	EXPECT_EQ(repaint, VGuiRect(0, 0, 30, 10));
	int inside = 0;
	group.list().forEach([&](VGuiGfxObject* o) {
		if (auto* b = dynamic_cast<VGuiGfxButton*>(o))
			inside += b->inside();
	});
	EXPECT_EQ(inside, 2);
	repaint = VGuiRect();
	EXPECT_TRUE(group.state(VGuiGfxButtonReleased, {35, 5}, repaint));
	EXPECT_EQ(repaint, VGuiRect(0, 0, 30, 10));
}

TEST(VGuiGfxGroup, HoldsMovesCopiesAndReleases)
{
	auto* line = new VGuiGfxLine({1, 2}, {5, 8}, kInk, kLineSolid, 1);
	auto* kept = new VGuiGfxRectangle({10, 10, 20, 20}, kInk, kInk, kLineSolid, 1);
	kept->lock(); // the test keeps a reference of its own
	{
		VGuiGfxGroup group;
		group.append(line);
		group.insert(kept);
		group.insert(nullptr);
		group.findExtent();
		group.moveBy({10, 100});
		EXPECT_EQ(line->to(), VGuiPoint(15, 108));
		EXPECT_EQ(group.extent(), VGuiRect(11, 102, 30, 120));
		VGuiGfxObject* copy = group.copy();
		EXPECT_EQ(copy->extent(), group.extent());
		static_cast<VGuiGfxGroup*>(copy)->list().forEach(
		    [&](VGuiGfxObject* o) { EXPECT_TRUE(o != line && o != kept) << "a deep copy"; });
		copy->release();
		std::vector<VGuiGfxObject*> order;
		group.list().forEach([&](VGuiGfxObject* o) { order.push_back(o); });
		EXPECT_EQ(order, (std::vector<VGuiGfxObject*>{kept, line}));
		group.deleteAll();
		EXPECT_EQ(kept->referenceCount(), 1);
		group.append(kept);
		group.removeAll(); // lets go without releasing
	}
	EXPECT_EQ(kept->referenceCount(), 1);
	kept->release();
}

TEST(VGuiGfxGroup, TakesTheBuildersPolylinesInOrder)
{
	for (bool atFront : {false, true})
	{
		VGuiGfxPolylineBuilder builder(8, kInk, kInk, kLineSolid, 1);
		builder.moveTo({0, 0});
		builder.lineTo({1, 0});
		builder.moveTo({5, 5});
		builder.lineTo({6, 7});
		VGuiGfxGroup group;
		group.append(new VGuiGfxLine({50, 50}, {60, 60}, kInk, kLineSolid, 1));
		group.takePolylines(builder, atFront);
		std::vector<VGuiPoint> origins;
		group.list().forEach([&](VGuiGfxObject* o) { origins.push_back(o->origin()); });
		const std::vector<VGuiPoint> expected =
		    atFront ? std::vector<VGuiPoint>{{5, 5}, {0, 0}, {50, 50}}
		            : std::vector<VGuiPoint>{{50, 50}, {0, 0}, {5, 5}};
		EXPECT_EQ(origins, expected);
	}
}

} // namespace
} // namespace velora_test
