#include "vgui/vguigfxrectangle.h"

VGuiGfxRectangle::VGuiGfxRectangle(const VGuiRect& r, const VGuiColour& lineColour,
                                   const VGuiColour& fillColour,
                                   const VSTGUI::CLineStyle& lineStyle, double lineWidth)
: VGuiGfxObject(r, 0.0, lineColour, fillColour, lineStyle, lineWidth)
{}

VGuiGfxObject* VGuiGfxRectangle::copy() const
{
	return new VGuiGfxRectangle(*this);
}

void VGuiGfxRectangle::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	drawShape(context, [this](VSTGUI::CGraphicsPath& path) { path.addRect(extent().toCRect()); });
}
