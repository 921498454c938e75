// A straight line between two points in the line colour, style and width.
#pragma once

#include "vgui/vguigfxobject.h"

class VGuiGfxLine : public VGuiGfxObject
{
public:
	VGuiGfxLine(const VGuiPoint& from, const VGuiPoint& to, const VGuiColour& colour,
	            const VSTGUI::CLineStyle& lineStyle, double lineWidth);

	VGuiGfxObject* copy() const override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	// The first point.
	VGuiPoint origin() const override;
	// Moves both points.
	void moveBy(const VGuiPoint& d) override;

	const VGuiPoint& from() const { return start; }
	const VGuiPoint& to() const { return end; }

private:
	VGuiPoint start;
	VGuiPoint end;
};
