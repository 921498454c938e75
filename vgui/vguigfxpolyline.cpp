#include "vgui/vguigfxpolyline.h"

#include <algorithm>

VGuiGfxPolyline::VGuiGfxPolyline(int count, const VGuiColour& lineColour,
                                 const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
                                 double lineWidth)
: points(static_cast<size_t>(std::max(count, 0))),
  line(lineColour),
  fill(fillColour),
  style(lineStyle),
  width(lineWidth)
{}

VGuiGfxPolyline::VGuiGfxPolyline(const VGuiPoint* source, int count, const VGuiColour& lineColour,
                                 const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
                                 double lineWidth)
: VGuiGfxPolyline(source ? count : 0, lineColour, fillColour, lineStyle, lineWidth)
{
	std::copy(source, source + points.size(), points.begin());
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
	if (points.empty())
	{
		bounds = VGuiRect();
		return;
	}
	bounds = VGuiRect(points[0].x, points[0].y, points[0].x, points[0].y);
	for (const VGuiPoint& p : points)
	{
		bounds.left = std::min(bounds.left, p.x);
		bounds.top = std::min(bounds.top, p.y);
		bounds.right = std::max(bounds.right, p.x);
		bounds.bottom = std::max(bounds.bottom, p.y);
	}
}

void VGuiGfxPolyline::moveBy(const VGuiPoint& d)
{
	for (VGuiPoint& p : points)
		p += d;
	bounds.moveBy(d);
}
