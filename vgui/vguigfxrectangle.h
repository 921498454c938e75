// A rectangle filled with the fill colour and framed with the line colour,
// style and width; the frame runs along the extent's edges.
#pragma once

#include "vgui/vguigfxobject.h"

class VGuiGfxRectangle : public VGuiGfxObject
{
public:
	VGuiGfxRectangle(const VGuiRect& r, const VGuiColour& lineColour, const VGuiColour& fillColour,
	                 const VSTGUI::CLineStyle& lineStyle, double lineWidth);

	VGuiGfxObject* copy() const override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
};
