#include "vgui/vguigfxpolyline.h"

#include <algorithm>

VGuiGfxPolyline::VGuiGfxPolyline(int count, const VGuiColour& lineColour,
                                 const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
                                 double lineWidth)
: VGuiGfxObject(lineColour, fillColour, lineStyle, lineWidth),
  points(static_cast<size_t>(std::max(count, 0)))
{}

VGuiGfxPolyline::VGuiGfxPolyline(const VGuiPoint* source, int count, const VGuiColour& lineColour,
                                 const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
                                 double lineWidth)
: VGuiGfxPolyline(source ? count : 0, lineColour, fillColour, lineStyle, lineWidth)
{
	std::copy(source, source + points.size(), points.begin());
	findExtent();
}

VGuiGfxObject* VGuiGfxPolyline::copy() const
{
	return new VGuiGfxPolyline(*this);
}

namespace {

// Whether the rectangle around segment a-b meets r.
bool meets(const VGuiPoint& a, const VGuiPoint& b, const VGuiRect& r)
{
	return std::min(a.x, b.x) <= r.right && std::max(a.x, b.x) >= r.left &&
	       std::min(a.y, b.y) <= r.bottom && std::max(a.y, b.y) >= r.top;
}

} // namespace

void VGuiGfxPolyline::draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	if (points.size() < 2)
		return;
	// A long curve repainted in a small rectangle (a cursor moving over it)
	// strokes only the runs of segments that come within reach of the
	// rectangle: a mitred corner reaches up to the miter limit (10) times
	// half the width beyond its point. A filled or dashed line keeps its
	// whole path: its fill and its dashes depend on all of it.
	const VGuiRect reach = grown(update, 5.0 * lineWidth() + 1.0);
	const bool whole = fillColour().alpha != 0 || lineStyle().getDashCount() != 0;
	drawShape(context, [&](VSTGUI::CGraphicsPath& path) {
		bool inRun = false;
		for (size_t i = 1; i < points.size(); ++i)
		{
			const bool needed = whole || meets(points[i - 1], points[i], reach);
			if (needed && !inRun)
				path.beginSubpath(points[i - 1].toCPoint());
			if (needed)
				path.addLine(points[i].toCPoint());
			inRun = needed;
		}
	});
}

void VGuiGfxPolyline::moveBy(const VGuiPoint& d)
{
	for (VGuiPoint& p : points)
		p += d;
	VGuiGfxObject::moveBy(d);
}

VGuiPoint VGuiGfxPolyline::point(int i) const
{
	return holds(i) ? points[static_cast<size_t>(i)] : VGuiPoint();
}

void VGuiGfxPolyline::point(const VGuiPoint& p, int i)
{
	if (holds(i))
		points[static_cast<size_t>(i)] = p;
}

void VGuiGfxPolyline::findExtent()
{
	setExtent(around(points.data(), count()));
}
