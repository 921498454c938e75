// An ellipse inscribed in the extent, filled and framed like a rectangle.
#pragma once

#include "vgui/vguigfxobject.h"

class VGuiGfxEllipse : public VGuiGfxObject
{
public:
	VGuiGfxEllipse(const VGuiRect& r, const VGuiColour& lineColour, const VGuiColour& fillColour,
	               const VSTGUI::CLineStyle& lineStyle, double lineWidth);
	// The ellipse about centre with the horizontal radius rx and the vertical ry.
	VGuiGfxEllipse(const VGuiPoint& centre, double rx, double ry, const VGuiColour& lineColour,
	               const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
	               double lineWidth);

	VGuiGfxObject* copy() const override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
};
