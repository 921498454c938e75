// A rectangle with rounded corners, filled and framed like a rectangle.
#pragma once

#include "vgui/vguigfxobject.h"

class VGuiGfxRoundRectangle : public VGuiGfxObject
{
public:
	VGuiGfxRoundRectangle(const VGuiRect& r, double radius, const VGuiColour& lineColour,
	                      const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
	                      double lineWidth);

	VGuiGfxObject* copy() const override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;

	double radius() const { return cornerRadius; }

private:
	double cornerRadius;
};
