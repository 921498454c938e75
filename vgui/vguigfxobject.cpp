#include "vgui/vguigfxobject.h"

#include <algorithm>

VGuiGfxObject::VGuiGfxObject(const VGuiColour& lineColour, const VGuiColour& fillColour,
                             const VSTGUI::CLineStyle& lineStyle, double lineWidth)
: line(lineColour),
  fill(fillColour),
  style(lineStyle),
  width(lineWidth)
{}

VGuiGfxObject::VGuiGfxObject(const VGuiRect& extent, double margin, const VGuiColour& lineColour,
                             const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
                             double lineWidth)
: bounds(extent),
  marginWidth(margin),
  line(lineColour),
  fill(fillColour),
  style(lineStyle),
  width(lineWidth)
{}

VGuiGfxObject::VGuiGfxObject(const VGuiGfxObject& other)
: OsiReferenceCount(),
  bounds(other.bounds),
  marginWidth(other.marginWidth),
  line(other.line),
  fill(other.fill),
  style(other.style),
  width(other.width)
{}

bool VGuiGfxObject::state(VGuiGfxState, const VGuiPoint&, VGuiRect&)
{
	return false;
}

VGuiRect VGuiGfxObject::physicalExtent() const
{
	return grown(extent(), marginWidth + width / 2.0);
}

VGuiRect VGuiGfxObject::extent() const
{
	return bounds;
}

VGuiPoint VGuiGfxObject::origin() const
{
	return bounds.topLeft();
}

bool VGuiGfxObject::isIn(const VGuiPoint& p) const
{
	const VGuiRect r = physicalExtent();
	return r.left <= p.x && p.x < r.right && r.top <= p.y && p.y < r.bottom;
}

bool VGuiGfxObject::isIn(const VGuiRect& r) const
{
	return !physicalExtent().intersect(r).isNull();
}

void VGuiGfxObject::moveBy(const VGuiPoint& d)
{
	bounds.moveBy(d);
}

VGuiRect VGuiGfxObject::grown(const VGuiRect& r, double d)
{
	return VGuiRect(r.left - d, r.top - d, r.right + d, r.bottom + d);
}

VGuiRect VGuiGfxObject::around(const VGuiPoint* points, int count)
{
	if (count < 1)
		return VGuiRect();
	VGuiRect r(points[0].x, points[0].y, points[0].x, points[0].y);
	for (int i = 1; i < count; ++i)
		r = VGuiRect(std::min(r.left, points[i].x), std::min(r.top, points[i].y),
		             std::max(r.right, points[i].x), std::max(r.bottom, points[i].y));
	return r;
}

void VGuiGfxObject::fillAndStroke(VSTGUI::CDrawContext* context, VSTGUI::CGraphicsPath* path,
                                  const VGuiColour& fillWith) const
{
	if (fillWith.alpha > 0)
	{
		context->setFillColor(fillWith.toCColor());
		context->drawGraphicsPath(path, VSTGUI::CDrawContext::kPathFilled);
	}
	if (line.alpha > 0 && width > 0.0)
	{
		context->setFrameColor(line.toCColor());
		context->setLineStyle(style);
		context->setLineWidth(width);
		context->drawGraphicsPath(path, VSTGUI::CDrawContext::kPathStroked);
	}
}
