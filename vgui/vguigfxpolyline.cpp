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

void VGuiGfxPolyline::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	if (points.size() < 2)
		return;
	drawShape(context, [this](VSTGUI::CGraphicsPath& path) {
		path.beginSubpath(points.front().toCPoint());
		for (size_t i = 1; i < points.size(); ++i)
			path.addLine(points[i].toCPoint());
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
