// Graphic objects drawn into a real offscreen VSTGUI (cairo) context, read back pixel by pixel.
#include "offscreen_canvas.h"

#include "vgui/vguigfxbitmap.h"
#include "vgui/vguigfxbutton.h"
#include "vgui/vguigfxellipse.h"
#include "vgui/vguigfxframeborder.h"
#include "vgui/vguigfxgroup.h"
#include "vgui/vguigfxline.h"
#include "vgui/vguigfxpath.h"
#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxrectangle.h"
#include "vgui/vguigfxroundrectangle.h"
#include "vgui/vguigfxtext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace velora_test {
namespace {

using VSTGUI::CDrawContext;
using VSTGUI::kLineSolid;

const VGuiColour kWhite(255, 255, 255);
const VGuiColour kRed(200, 30, 30);
const VGuiColour kBlue(30, 30, 200);
const VGuiColour kNone(0, 0, 0, 0);
constexpr int kSize = 80;

bool near(const VGuiColour& a, const VGuiColour& b)
{
	return std::abs(a.red - b.red) <= 2 && std::abs(a.green - b.green) <= 2 &&
	       std::abs(a.blue - b.blue) <= 2;
}

struct KindCase
{
	const char* name;
	std::function<VGuiGfxObject*(CDrawContext*)> make;
	// A pixel that must show the fill colour, when the kind has one.
	int fillX, fillY;
	VGuiColour fill;
};

VGuiGfxObject* triangle(CDrawContext* context)
{
	auto* path = new VGuiGfxPath({10, 10, 70, 70}, kBlue, kRed, kLineSolid, 2.0);
	if (VSTGUI::CGraphicsPath* p = path->beginPath(context))
	{
		p->beginSubpath(10, 70);
		p->addLine(40, 10);
		p->addLine(70, 70);
	}
	path->endPath();
	path->moveBy({4, 5});
	return path;
}

VGuiGfxObject* text(CDrawContext* context, double angle)
{
	auto* t = new VGuiGfxText("Hz", VGuiFont("Arial", 14, 0), {40, 40}, kBlue, kRed,
	                          VSTGUI::kCenterText, angle);
	t->findExtent(context);
	return t;
}

VGuiGfxObject* bitmap(CDrawContext*)
{
	auto source = VSTGUI::COffscreenContext::create(VSTGUI::CPoint(20, 10));
	source->beginDraw();
	source->setFillColor(kRed.toCColor());
	source->drawRect(VSTGUI::CRect(0, 0, 20, 10), VSTGUI::kDrawFilled);
	source->endDraw();
	return new VGuiGfxBitmap(source->getBitmap(), {30, 35}, kWhite);
}

VGuiGfxObject* movedGroup(CDrawContext*)
{
	auto* g = new VGuiGfxGroup;
	g->append(new VGuiGfxRectangle({0, 0, 10, 10}, kNone, kRed, kLineSolid, 0.0));
	g->append(new VGuiGfxRectangle({15, 15, 25, 25}, kNone, kRed, kLineSolid, 0.0));
	g->findExtent();
	g->moveBy({30, 30});
	return g;
}

template <typename Gfx, typename... Args>
std::function<VGuiGfxObject*(CDrawContext*)> kind(Args... args)
{
	return [=](CDrawContext*) { return new Gfx(args...); };
}

const VGuiRect kBox(20, 20, 60, 40);

const KindCase kKinds[] = {
    {"rectangle", kind<VGuiGfxRectangle>(kBox, kBlue, kRed, kLineSolid, 4), 35, 35, kRed},
    {"round rectangle", kind<VGuiGfxRoundRectangle>(kBox, 12, kBlue, kRed, kLineSolid, 2), 40, 25,
     kRed},
    {"ellipse", kind<VGuiGfxEllipse>(VGuiPoint(40, 40), 30, 15, kBlue, kRed, kLineSolid, 3), 40, 40,
     kRed},
    {"path, moved", triangle, 44, 55, kRed},
    {"line", kind<VGuiGfxLine>(VGuiPoint(10, 70), VGuiPoint(70, 10), kBlue, kLineSolid, 3), 40, 40,
     kBlue},
    {"polyline",
     [](CDrawContext*) {
	     const VGuiPoint zigzag[] = {{10, 60}, {30, 20}, {50, 60}, {70, 20}};
	     return new VGuiGfxPolyline(zigzag, 4, kBlue, kNone, kLineSolid, 3);
     },
     20, 40, kBlue},
    {"text", [](CDrawContext* c) { return text(c, 0); }, -1, -1, kNone},
    {"text at 90 degrees", [](CDrawContext* c) { return text(c, 90); }, -1, -1, kNone},
    {"bitmap", bitmap, 40, 40, kRed},
    {"button", kind<VGuiGfxButton>(kBox, kBlue, kRed, false, false), 40, 30, kRed},
    {"frame border", kind<VGuiGfxFrameBorder>(VGuiRect(20, 20, 60, 60), 6, kRed, kBlue, 0), 20, 17,
     kRed},
    {"group, moved", movedGroup, 35, 35, kRed},
};

TEST(VGuiGfxDrawing, EachKindPaintsInsideItsPhysicalExtentOnly)
{
	for (const KindCase& k : kKinds)
	{
		OffscreenCanvas canvas(kSize, kSize);
		VGuiGfxObject* object = k.make(canvas.get());
		object->draw(canvas.get(), VGuiRect(0, 0, kSize, kSize));
		// Antialiasing may tint the pixel rows that the extent's edges cut.
		const VGuiRect allowed = VGuiGfxObject::grown(object->physicalExtent(), 1.0);
		int inked = 0;
		int stray = 0;
		for (int y = 0; y < kSize; ++y)
			for (int x = 0; x < kSize; ++x)
				if (canvas.pixel(x, y) != kWhite)
				{
					++inked;
					stray += !(allowed.left <= x && x < allowed.right && allowed.top <= y &&
					           y < allowed.bottom);
				}
		EXPECT_GT(inked, 20) << k.name;
		EXPECT_EQ(stray, 0) << k.name;
		if (k.fillX >= 0)
		{
			EXPECT_TRUE(near(canvas.pixel(k.fillX, k.fillY), k.fill)) << k.name;
		}
		object->release();
	}
}

TEST(VGuiGfxDrawing, GroupDrawsOnlyWhatReachesTheUpdate)
{
	OffscreenCanvas canvas(kSize, kSize);
	VGuiGfxGroup group;
	group.append(new VGuiGfxRectangle({0, 0, 20, 20}, kNone, kRed, kLineSolid, 0));
	group.append(new VGuiGfxRectangle({40, 40, 60, 60}, kNone, kRed, kLineSolid, 0));
	group.draw(canvas.get(), VGuiRect(50, 50, 80, 80));
	EXPECT_EQ(canvas.pixel(10, 10), kWhite);
	EXPECT_EQ(canvas.pixel(45, 45), kRed); // the whole object, not only the update
}

// A line repainted in part looks there as when drawn whole, even where only
// the mitred corner of segments beside the update reaches into it.
TEST(VGuiGfxDrawing, ALineRepaintedInPartLooksAsWhole)
{
	const VGuiPoint corner[4] = {{6, 33}, {27, 36}, {6, 39}, {70, 70}};
	const VGuiGfxPolyline line(corner, 4, kBlue, kNone, kLineSolid, 2.0);
	const VGuiRect update(30, 30, 42, 42);
	OffscreenCanvas whole(kSize, kSize), part(kSize, kSize);
	line.draw(whole.get(), VGuiRect(0, 0, kSize, kSize));
	part.get()->setClipRect(update.toCRect());
	line.draw(part.get(), update);
	EXPECT_NE(whole.pixel(30, 36), kWhite) << "the corner's tip";
	for (int y = 30; y < 42; ++y)
		for (int x = 30; x < 42; ++x)
			EXPECT_TRUE(near(part.pixel(x, y), whole.pixel(x, y))) << x << ", " << y;
}

struct BorderCase
{
	int style;
	// The top side's outer and inner half; the bottom shows the other colour.
	bool outerLit, innerLit;
};

const BorderCase kBorders[] = {
    {0, true, true}, {1, false, false}, {2, false, true}, {3, true, false}};

TEST(VGuiGfxDrawing, FrameBorderStylesLightTheirSides)
{
	for (const BorderCase& c : kBorders)
	{
		OffscreenCanvas canvas(kSize, kSize);
		VGuiGfxFrameBorder({20, 20, 60, 60}, 8, kRed, kBlue, c.style)
		    .draw(canvas.get(), VGuiRect(0, 0, kSize, kSize));
		EXPECT_EQ(canvas.pixel(40, 13), c.outerLit ? kRed : kBlue) << c.style;
		EXPECT_EQ(canvas.pixel(40, 18), c.innerLit ? kRed : kBlue) << c.style;
		EXPECT_EQ(canvas.pixel(40, 66), c.outerLit ? kBlue : kRed) << c.style;
		EXPECT_EQ(canvas.pixel(40, 61), c.innerLit ? kBlue : kRed) << c.style;
		EXPECT_EQ(canvas.pixel(40, 40), kWhite) << c.style;
	}
}

TEST(VGuiGfxDrawing, ButtonFaceLightensOnHoverAndDarkensWhenPushed)
{
	struct Look
	{
		bool inside, pressed;
		int lightness; // against the face colour's: -1 darker, 0 the same, 1 lighter
	};
	const Look looks[] = {{false, false, 0}, {true, false, 1}, {true, true, -1}, {false, true, 0}};
	const VGuiColour face(100, 140, 180);
	for (const Look& l : looks)
	{
		OffscreenCanvas canvas(kSize, kSize);
		VGuiGfxButton({10, 10, 50, 30}, kBlue, face, l.inside, l.pressed)
		    .draw(canvas.get(), VGuiRect(0, 0, kSize, kSize));
		const int drawn = canvas.pixel(30, 20).toHLS().lightness;
		const int base = face.toHLS().lightness;
		EXPECT_EQ((drawn > base + 2) - (drawn < base - 2), l.lightness)
		    << l.inside << l.pressed << " " << drawn;
	}
}

} // namespace
} // namespace velora_test
