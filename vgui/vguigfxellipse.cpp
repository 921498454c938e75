#include "vgui/vguigfxellipse.h"

VGuiGfxEllipse::VGuiGfxEllipse(const VGuiRect& r, const VGuiColour& lineColour,
                               const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
                               double lineWidth)
: VGuiGfxObject(r, 0.0, lineColour, fillColour, lineStyle, lineWidth)
{}

VGuiGfxEllipse::VGuiGfxEllipse(const VGuiPoint& centre, double rx, double ry,
                               const VGuiColour& lineColour, const VGuiColour& fillColour,
                               const VSTGUI::CLineStyle& lineStyle, double lineWidth)
: VGuiGfxEllipse(VGuiRect(centre.x - rx, centre.y - ry, centre.x + rx, centre.y + ry), lineColour,
                 fillColour, lineStyle, lineWidth)
{}

VGuiGfxObject* VGuiGfxEllipse::copy() const
{
	return new VGuiGfxEllipse(*this);
}

void VGuiGfxEllipse::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	drawShape(context,
	          [this](VSTGUI::CGraphicsPath& path) { path.addEllipse(extent().toCRect()); });
}
