// A parallelogram given by three of its corners: the origin and the ends of
// its two edges from there (the fourth corner is uEnd + vEnd - origin). The
// affine map that takes one parallelogram onto another, corner to
// corresponding corner, carries points, rectangles and parallelograms
// between two frames, e.g. from a rotated plot area onto the screen.
#pragma once

#include "vgui/vguipoint.h"
#include "vgui/vguirect.h"

class VGuiParallelogram
{
public:
	VGuiParallelogram() = default;
	VGuiParallelogram(const VGuiPoint& origin, const VGuiPoint& uEnd, const VGuiPoint& vEnd)
	: origin(origin),
	  uEnd(uEnd),
	  vEnd(vEnd)
	{}
	// Origin at the top left, u along the top edge, v down the left edge.
	explicit VGuiParallelogram(const VGuiRect& r)
	: VGuiParallelogram({r.left, r.top}, {r.right, r.top}, {r.left, r.bottom})
	{}

	VGuiPoint oppositeCorner() const { return uEnd + vEnd - origin; }
	// The smallest rectangle holding the four corners.
	VGuiRect extent() const;

	// Each maps from this parallelogram onto `onto`; false, changing
	// nothing, when this one is flat (its edges parallel).
	bool mapPoint(VGuiPoint& p, const VGuiParallelogram& onto) const;
	bool mapParallelogram(VGuiParallelogram& p, const VGuiParallelogram& onto) const;
	// The rectangle's image, a parallelogram in general.
	bool mapRect(const VGuiRect& r, const VGuiParallelogram& onto, VGuiParallelogram& image) const;

	VGuiPoint origin;
	VGuiPoint uEnd;
	VGuiPoint vEnd;
};
