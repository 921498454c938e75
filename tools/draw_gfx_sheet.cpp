// Draws a sheet of every kind of the graph toolkit's graphic objects, each in
// a labelled cell, through VSTGUI's offscreen drawing context, to a PNG file
// (docs/vgui-objects.png). The cells are drawn with the toolkit itself.
//
// usage: draw_gfx_sheet OUTPUT.png
#include "vgui/vguigfxbitmap.h"
#include "vgui/vguigfxbutton.h"
#include "vgui/vguigfxbuttongroup.h"
#include "vgui/vguigfxellipse.h"
#include "vgui/vguigfxframeborder.h"
#include "vgui/vguigfxgroup.h"
#include "vgui/vguigfxline.h"
#include "vgui/vguigfxpath.h"
#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxpolylinebuilder.h"
#include "vgui/vguigfxrectangle.h"
#include "vgui/vguigfxroundrectangle.h"
#include "vgui/vguigfxtext.h"

#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/platform/platformfactory.h"
#include "vstgui/lib/vstguiinit.h"

#include <cmath>
#include <cstdio>
#include <fstream>

namespace {

using VSTGUI::CDrawContext;
using VSTGUI::CLineStyle;
using VSTGUI::kLineOnOffDash;
using VSTGUI::kLineSolid;

constexpr int kColumns = 4;
constexpr int kRows = 5;
constexpr double kCellWidth = 190;
constexpr double kCellHeight = 140;
constexpr double kTitleHeight = 40;
constexpr double kCaptionHeight = 30;
// Pixels per unit of the sheet, for a crisp picture.
constexpr double kScale = 2.0;

const VGuiColour kPaper(246, 246, 242);
const VGuiColour kCellFace(255, 255, 255);
const VGuiColour kCellEdge(200, 200, 196);
const VGuiColour kInk(40, 40, 48);
const VGuiColour kMuted(120, 120, 128);
const VGuiColour kBlue(52, 101, 164);
const VGuiColour kSky(160, 196, 232);
const VGuiColour kOrange(206, 92, 0);
const VGuiColour kSand(252, 206, 148);
const VGuiColour kGreen(36, 160, 60);
const VGuiColour kNone(0, 0, 0, 0);
const VGuiColour kHighlight(239, 239, 239);
const VGuiColour kShadow(128, 128, 128);
const VGuiColour kWindow(192, 192, 192);

// The drawing area of a cell, above its caption.
VGuiRect cell(int column, int row)
{
	const double left = column * kCellWidth + 10;
	const double top = kTitleHeight + row * kCellHeight + 10;
	return VGuiRect(left, top, left + kCellWidth - 20, top + kCellHeight - 20 - kCaptionHeight);
}

VGuiPoint centre(const VGuiRect& r)
{
	return VGuiPoint((r.left + r.right) / 2, (r.top + r.bottom) / 2);
}

VGuiRect centred(const VGuiRect& r, double width, double height)
{
	const VGuiPoint c = centre(r);
	return VGuiRect(c.x - width / 2, c.y - height / 2, c.x + width / 2, c.y + height / 2);
}

VGuiGfxText* text(CDrawContext* context, const char* s, const VGuiPoint& at, double size,
                  const VGuiColour& colour, VSTGUI::CHoriTxtAlign align = VSTGUI::kCenterText,
                  double angle = 0.0)
{
	auto* t = new VGuiGfxText(s, VGuiFont("Arial", size, 0), at, colour, kNone, align, angle);
	t->findExtent(context);
	return t;
}

// The cell's white card with the class name and a note beneath the drawing.
void card(VGuiGfxGroup& sheet, CDrawContext* context, int column, int row, const char* name,
          const char* note)
{
	const VGuiRect r = cell(column, row);
	sheet.append(new VGuiGfxRoundRectangle(VGuiGfxObject::grown(r, 6).join(VGuiRect(
	                                           r.left, r.top, r.right, r.bottom + kCaptionHeight)),
	                                       6, kCellEdge, kCellFace, kLineSolid, 1));
	sheet.append(text(context, name, {centre(r).x, r.bottom + 2}, 11, kInk));
	sheet.append(text(context, note, {centre(r).x, r.bottom + 15}, 9, kMuted));
}

// A small picture made with the toolkit itself: a loudspeaker's cone.
VSTGUI::SharedPointer<VSTGUI::CBitmap> speakerBitmap()
{
	auto context = VSTGUI::COffscreenContext::create(VSTGUI::CPoint(32, 32), kScale);
	context->beginDraw();
	const CDrawContext::Transform scaled(*context,
	                                     VSTGUI::CGraphicsTransform().scale(kScale, kScale));
	VGuiGfxGroup icon;
	icon.append(new VGuiGfxRoundRectangle({4, 2, 28, 30}, 4, kInk, kSand, kLineSolid, 1.5));
	icon.append(new VGuiGfxEllipse(VGuiPoint(16, 19), 7, 7, kInk, kOrange, kLineSolid, 1.5));
	icon.append(new VGuiGfxEllipse(VGuiPoint(16, 8), 3, 3, kInk, kOrange, kLineSolid, 1.5));
	icon.findExtent();
	icon.draw(context, VGuiRect(0, 0, 32, 32));
	context->endDraw();
	return context->getBitmap();
}

void shapes(VGuiGfxGroup& sheet, CDrawContext* context)
{
	card(sheet, context, 0, 0, "VGuiGfxRectangle", "framed and filled");
	sheet.append(new VGuiGfxRectangle(centred(cell(0, 0), 110, 60), kBlue, kSky, kLineSolid, 2));
	card(sheet, context, 1, 0, "VGuiGfxRoundRectangle", "corner radius 14");
	sheet.append(
	    new VGuiGfxRoundRectangle(centred(cell(1, 0), 110, 60), 14, kOrange, kSand, kLineSolid, 2));
	card(sheet, context, 2, 0, "VGuiGfxEllipse", "centre and two radii, dashed");
	sheet.append(new VGuiGfxEllipse(centre(cell(2, 0)), 60, 30, kGreen, kNone, kLineOnOffDash, 2));
	card(sheet, context, 3, 0, "VGuiGfxPath", "a graphics path, moved");
	const VGuiRect r = cell(3, 0);
	auto* arrow = new VGuiGfxPath(centred(r, 80, 60), kBlue, kSky, kLineSolid, 2);
	if (VSTGUI::CGraphicsPath* p = arrow->beginPath(context))
	{
		const VGuiRect a = arrow->extent();
		p->beginSubpath(a.left, a.top + 20);
		p->addLine(a.left + 45, a.top + 20);
		p->addLine(a.left + 45, a.top);
		p->addLine(a.right, a.top + 30);
		p->addLine(a.left + 45, a.bottom);
		p->addLine(a.left + 45, a.bottom - 20);
		p->addLine(a.left, a.bottom - 20);
	}
	arrow->endPath();
	arrow->moveBy({10, 0});
	sheet.append(arrow);
}

// One and a half turns of a sine through the polyline builder, clipped to a
// band (dashed): the wave leaves the band and comes back, and each visible
// run becomes a polyline of its own, drawn here in turn in three colours over
// the whole wave in grey.
void clippedWave(VGuiGfxGroup& sheet, CDrawContext* context)
{
	card(sheet, context, 2, 1, "VGuiGfxPolylineBuilder", "clipped: one polyline per run");
	const VGuiRect r = cell(2, 1);
	const VGuiRect band(r.left + 4, centre(r).y - 20, r.right - 4, centre(r).y + 20);
	sheet.append(new VGuiGfxRectangle(band, kMuted, kNone, kLineOnOffDash, 1));
	constexpr int kPoints = 90;
	auto* whole = new VGuiGfxPolyline(kPoints, kCellEdge, kNone, kLineSolid, 1);
	VGuiGfxPolylineBuilder builder(kPoints, kBlue, kNone, kLineSolid, 2.5);
	for (int i = 0; i < kPoints; ++i)
	{
		const double x = r.left + 8 + (r.right - r.left - 16) * i / (kPoints - 1);
		const VGuiPoint p(x, centre(r).y - 34 * std::sin(i * 3 * M_PI / (kPoints - 1)));
		whole->point(p, i);
		if (i == 0)
			builder.moveTo(p);
		else
			builder.lineTo(p, band);
	}
	whole->findExtent();
	sheet.append(whole);
	VGuiGfxGroup runs;
	runs.takePolylines(builder, false);
	const VGuiColour colours[] = {kBlue, kOrange, kGreen};
	int n = 0;
	runs.list().forEach([&](VGuiGfxObject* o) {
		auto* copy = o->copy();
		copy->setLineColour(colours[n++ % 3]);
		sheet.append(copy);
	});
}

void lines(VGuiGfxGroup& sheet, CDrawContext* context)
{
	const VGuiRect r = cell(0, 1);
	card(sheet, context, 0, 1, "VGuiGfxLine", "widths 1, 2 and 4; dashed");
	for (int i = 0; i < 4; ++i)
	{
		const double y = r.top + 10 + i * 18;
		const double width = i == 3 ? 2 : double(1 << i);
		sheet.append(new VGuiGfxLine({r.left + 20, y}, {r.right - 20, y + 8}, kInk,
		                             i == 3 ? kLineOnOffDash : kLineSolid, width));
	}
	const VGuiRect q = cell(1, 1);
	card(sheet, context, 1, 1, "VGuiGfxPolyline", "open, filled");
	const VGuiPoint star[] = {{0, -34}, {9, -10},  {34, -10}, {14, 5},    {22, 30},
	                          {0, 15},  {-22, 30}, {-14, 5},  {-34, -10}, {-9, -10}};
	auto* polyline = new VGuiGfxPolyline(10, kOrange, kSand, kLineSolid, 2);
	for (int i = 0; i < 10; ++i)
		polyline->point(star[i] + centre(q), i);
	polyline->findExtent();
	sheet.append(polyline);
	clippedWave(sheet, context);

	card(sheet, context, 3, 1, "VGuiGfxGroup", "copied, and the copy moved");
	const VGuiRect g = cell(3, 1);
	VGuiGfxGroup group;
	group.append(new VGuiGfxEllipse(VGuiPoint(g.left + 35, g.top + 30), 20, 20, kBlue, kSky,
	                                kLineSolid, 1.5));
	group.append(new VGuiGfxRectangle({g.left + 45, g.top + 20, g.left + 85, g.top + 50}, kOrange,
	                                  kNone, kLineSolid, 1.5));
	group.findExtent();
	sheet.append(group.copy());
	VGuiGfxObject* moved = group.copy();
	moved->moveBy({70, 22});
	sheet.append(moved);
}

void texts(VGuiGfxGroup& sheet, CDrawContext* context)
{
	card(sheet, context, 0, 2, "VGuiGfxText", "left, centred and right");
	const VGuiRect r = cell(0, 2);
	sheet.append(
	    new VGuiGfxLine({centre(r).x, r.top}, {centre(r).x, r.bottom}, kCellEdge, kLineSolid, 1));
	sheet.append(text(context, "Frequency", {centre(r).x, r.top + 8}, 13, kInk, VSTGUI::kLeftText));
	sheet.append(text(context, "1 kHz", {centre(r).x, r.top + 32}, 13, kBlue));
	sheet.append(
	    text(context, "-6 dB", {centre(r).x, r.top + 56}, 13, kOrange, VSTGUI::kRightText));

	card(sheet, context, 1, 2, "VGuiGfxText, turned", "90 and -90 degrees about the anchor");
	const VGuiRect q = cell(1, 2);
	sheet.append(text(context, "Level (dB)", {centre(q).x - 30, centre(q).y}, 13, kInk,
	                  VSTGUI::kCenterText, 90));
	sheet.append(text(context, "Phase", {centre(q).x + 30, centre(q).y}, 13, kBlue,
	                  VSTGUI::kCenterText, -90));

	card(sheet, context, 2, 2, "VGuiGfxText, line style", "framed on a background");
	const VGuiRect t = cell(2, 2);
	auto* framed = new VGuiGfxText("1.00 kHz, -3.0 dB", VGuiFont("Arial", 12, 0),
	                               {centre(t).x, centre(t).y - 10}, kInk, kSand,
	                               VSTGUI::kCenterText, 0, kLineOnOffDash);
	framed->setMargin(5);
	framed->findExtent(context);
	sheet.append(framed);

	card(sheet, context, 3, 2, "VGuiGfxBitmap", "at full and half opacity");
	const VGuiRect b = cell(3, 2);
	const auto speaker = speakerBitmap();
	sheet.append(new VGuiGfxBitmap(speaker, {centre(b).x - 40, centre(b).y - 16}, VGuiColour()));
	sheet.append(
	    new VGuiGfxBitmap(speaker, {centre(b).x + 8, centre(b).y - 16}, VGuiColour(0, 0, 0, 128)));
}

void buttons(VGuiGfxGroup& sheet, CDrawContext* context)
{
	const auto speaker = speakerBitmap();
	const char* notes[] = {"at rest", "pointer inside", "pressed"};
	for (int i = 0; i < 3; ++i)
	{
		card(sheet, context, i, 3, "VGuiGfxButton", notes[i]);
		sheet.append(
		    new VGuiGfxButton(centred(cell(i, 3), 90, 50), kInk, kWindow, i > 0, i == 2, speaker));
	}
	card(sheet, context, 3, 3, "VGuiGfxButtonGroup", "one hit test: both light up");
	const VGuiRect pair = centred(cell(3, 3), 120, 40);
	auto* group = new VGuiGfxButtonGroup;
	group->append(new VGuiGfxButton({pair.left, pair.top, pair.left + 56, pair.bottom}, kInk,
	                                kWindow, false, false));
	group->append(new VGuiGfxButton({pair.right - 56, pair.top, pair.right, pair.bottom}, kInk,
	                                kWindow, false, false));
	group->findExtent();
	const VGuiPoint pointer(pair.left + 24, pair.top + 16);
	VGuiRect repaint;
	group->state(VGuiGfxPointerMoved, pointer, repaint);
	sheet.append(group);
	// The pointer, as an arrow.
	const VGuiPoint arrow[] = {{0, 0}, {0, 16}, {4, 12}, {7, 19}, {9, 18}, {6, 11}, {11, 11}};
	auto* cursor = new VGuiGfxPolyline(7, kInk, kCellFace, kLineSolid, 1);
	for (int i = 0; i < 7; ++i)
		cursor->point(arrow[i] + pointer, i);
	cursor->findExtent();
	sheet.append(cursor);
}

void frameBorders(VGuiGfxGroup& sheet, CDrawContext* context)
{
	const char* notes[] = {"style 0, raised", "style 1, sunken", "style 2, etched",
	                       "style 3, bumped"};
	for (int style = 0; style < 4; ++style)
	{
		card(sheet, context, style, 4, "VGuiGfxFrameBorder", notes[style]);
		const VGuiRect r = centred(cell(style, 4), 96, 44);
		sheet.append(
		    new VGuiGfxRectangle(VGuiGfxObject::grown(r, 14), kNone, kWindow, kLineSolid, 0));
		sheet.append(new VGuiGfxFrameBorder(r, 8, kHighlight, kShadow, style));
		sheet.append(new VGuiGfxRectangle(r, kNone, kInk, kLineSolid, 0));
	}
}

bool writeSheet(const char* path)
{
	const VSTGUI::CPoint size(kColumns * kCellWidth, kTitleHeight + kRows * kCellHeight);
	auto context = VSTGUI::COffscreenContext::create(size * kScale);
	if (!context)
		return false;
	context->beginDraw();
	context->setDrawMode(VSTGUI::kAntiAliasing);
	const CDrawContext::Transform scaled(*context,
	                                     VSTGUI::CGraphicsTransform().scale(kScale, kScale));
	VGuiGfxGroup sheet;
	sheet.append(new VGuiGfxRectangle({0, 0, size.x, size.y}, kNone, kPaper, kLineSolid, 0));
	sheet.append(text(context, "Graphic objects of the graph toolkit (vgui)", {14, 12}, 16, kInk,
	                  VSTGUI::kLeftText));
	shapes(sheet, context);
	lines(sheet, context);
	texts(sheet, context);
	buttons(sheet, context);
	frameBorders(sheet, context);
	sheet.draw(context, VGuiRect(0, 0, size.x, size.y));
	context->endDraw();
	const auto png = VSTGUI::getPlatformFactory().createBitmapMemoryPNGRepresentation(
	    context->getBitmap()->getPlatformBitmap());
	if (png.empty())
		return false;
	std::ofstream out(path, std::ios::binary);
	out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
	return static_cast<bool>(out.flush());
}

} // namespace

int main(int argc, char** argv)
{
	if (argc != 2)
	{
		std::fprintf(stderr, "usage: %s OUTPUT.png\n", argv[0]);
		return 2;
	}
	VSTGUI::init(nullptr);
	const bool written = writeSheet(argv[1]);
	VSTGUI::exit();
	if (!written)
	{
		std::fprintf(stderr, "draw_gfx_sheet: cannot write %s\n", argv[1]);
		return 1;
	}
	return 0;
}
