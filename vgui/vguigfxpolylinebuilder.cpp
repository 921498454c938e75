#include "vgui/vguigfxpolylinebuilder.h"

#include "vgui/vguigfxpolyline.h"
#include "vgui/vguilinesegment.h"

#include <algorithm>

VGuiGfxPolylineBuilder::VGuiGfxPolylineBuilder(int capacity, const VGuiColour& lineColour,
                                               const VGuiColour& fillColour,
                                               const VSTGUI::CLineStyle& lineStyle,
                                               double lineWidth)
: capacity(static_cast<size_t>(std::max(capacity, 0))),
  lineColour(lineColour),
  fillColour(fillColour),
  lineStyle(lineStyle),
  lineWidth(lineWidth)
{
	points.reserve(this->capacity);
}

VGuiGfxPolylineBuilder::~VGuiGfxPolylineBuilder()
{
	while (void* polyline = finished.removeFirst())
		static_cast<VGuiGfxPolyline*>(polyline)->release();
}

void VGuiGfxPolylineBuilder::moveTo(const VGuiPoint& p)
{
	if (capacity == 0 || (!points.empty() && p == points.back()))
		return;
	finishPolyline();
	points.clear();
	points.push_back(p);
}

void VGuiGfxPolylineBuilder::lineTo(const VGuiPoint& p)
{
	if (points.empty())
		moveTo(p);
	else
		append(p);
}

void VGuiGfxPolylineBuilder::lineTo(const VGuiPoint& p, const VGuiRect& clip)
{
	if (points.empty())
	{
		moveTo(p);
		return;
	}
	if (isFull() || p == points.back())
		return;
	VGuiLineSegment visible(points.back(), p);
	if (!visible.clip(clip))
	{
		moveTo(p);
		return;
	}
	if (visible.start != points.back())
		moveTo(visible.start);
	append(visible.end);
	if (visible.end != p)
		moveTo(p);
}

void VGuiGfxPolylineBuilder::putPolylines(OsiList& polylines, bool atFront)
{
	finishPolyline();
	points.clear();
	while (void* polyline = finished.removeFirst())
	{
		if (atFront)
			polylines.insert(polyline);
		else
			polylines.append(polyline);
	}
}

void VGuiGfxPolylineBuilder::append(const VGuiPoint& p)
{
	if (!isFull() && p != points.back())
		points.push_back(p);
}

void VGuiGfxPolylineBuilder::finishPolyline()
{
	if (points.size() < 2)
		return;
	finished.append(new VGuiGfxPolyline(points.data(), static_cast<int>(points.size()), lineColour,
	                                    fillColour, lineStyle, lineWidth));
}
