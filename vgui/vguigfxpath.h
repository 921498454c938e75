// A free shape: a VSTGUI graphics path that the caller builds between
// beginPath and endPath, filled and framed like a rectangle. The extent, given
// at construction, is the shape's area for hit tests; moving the object moves
// the path with it.
#pragma once

#include "vgui/vguigfxobject.h"

class VGuiGfxPath : public VGuiGfxObject
{
public:
	VGuiGfxPath(const VGuiRect& r, const VGuiColour& lineColour, const VGuiColour& fillColour,
	            const VSTGUI::CLineStyle& lineStyle, double lineWidth);

	VGuiGfxObject* copy() const override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;

	// Starts a new, empty path made by the context, replacing any earlier
	// one, and returns it for the caller to add figures to (null when the
	// context makes no paths).
	VSTGUI::CGraphicsPath* beginPath(VSTGUI::CDrawContext* context);
	// Closes the figure being built.
	void endPath();

private:
	VSTGUI::SharedPointer<VSTGUI::CGraphicsPath> path;
	// Where the extent's top-left corner was when the path was built.
	VGuiPoint home;
};
