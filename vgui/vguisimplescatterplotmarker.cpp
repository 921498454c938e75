#include "vgui/vguisimplescatterplotmarker.h"

#include "vgui/vguigfxellipse.h"
#include "vgui/vguigfxline.h"
#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxrectangle.h"

namespace {

void addLine(VGuiGfxGroup& group, const VGuiPoint& from, const VGuiPoint& to,
             const VGuiColour& colour, const VSTGUI::CLineStyle& style, double width)
{
	group.append(new VGuiGfxLine(from, to, colour, style, width));
}

} // namespace

void VGuiSimpleScatterPlotMarker::draw(VGuiGfxGroup& group, const VGuiColour& lineColour,
                                       const VGuiColour& fillColour,
                                       const VSTGUI::CLineStyle& lineStyle, double lineWidth,
                                       const VGuiPoint& at) const
{
	const double r = size / 2.0;
	switch (type)
	{
	case VGuiScatterDot:
		group.append(
		    new VGuiGfxEllipse(at, r / 2.0, r / 2.0, lineColour, lineColour, lineStyle, 0.0));
		break;
	case VGuiScatterCross:
		addLine(group, at + VGuiPoint(-r, -r), at + VGuiPoint(r, r), lineColour, lineStyle,
		        lineWidth);
		addLine(group, at + VGuiPoint(-r, r), at + VGuiPoint(r, -r), lineColour, lineStyle,
		        lineWidth);
		break;
	case VGuiScatterPlus:
		addLine(group, at + VGuiPoint(-r, 0), at + VGuiPoint(r, 0), lineColour, lineStyle,
		        lineWidth);
		addLine(group, at + VGuiPoint(0, -r), at + VGuiPoint(0, r), lineColour, lineStyle,
		        lineWidth);
		break;
	case VGuiScatterSquare:
		group.append(new VGuiGfxRectangle(VGuiRect(at.x - r, at.y - r, at.x + r, at.y + r),
		                                  lineColour, fillColour, lineStyle, lineWidth));
		break;
	case VGuiScatterCircle:
		group.append(new VGuiGfxEllipse(at, r, r, lineColour, fillColour, lineStyle, lineWidth));
		break;
	case VGuiScatterTriangle:
	{
		// Equilateral, its centre on the point.
		const VGuiPoint corners[] = {at + VGuiPoint(0, -r), at + VGuiPoint(0.866 * r, 0.5 * r),
		                             at + VGuiPoint(-0.866 * r, 0.5 * r), at + VGuiPoint(0, -r)};
		group.append(new VGuiGfxPolyline(corners, 4, lineColour, fillColour, lineStyle, lineWidth));
		break;
	}
	}
}
