#include "vgui/vguigfxroundrectangle.h"

VGuiGfxRoundRectangle::VGuiGfxRoundRectangle(const VGuiRect& r, double radius,
                                             const VGuiColour& lineColour,
                                             const VGuiColour& fillColour,
                                             const VSTGUI::CLineStyle& lineStyle, double lineWidth)
: VGuiGfxObject(r, 0.0, lineColour, fillColour, lineStyle, lineWidth),
  cornerRadius(radius)
{}

VGuiGfxObject* VGuiGfxRoundRectangle::copy() const
{
	return new VGuiGfxRoundRectangle(*this);
}

void VGuiGfxRoundRectangle::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	drawShape(context, [this](VSTGUI::CGraphicsPath& path) {
		path.addRoundRect(extent().toCRect(), cornerRadius);
	});
}
