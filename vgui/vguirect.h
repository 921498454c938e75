// A rectangle of the graph toolkit: left, top, right, bottom as doubles. The
// all-zero rectangle stands for no rectangle at all (nothing to repaint, no
// extent yet).
#pragma once

#include "vgui/vguipoint.h"

#include "vstgui/lib/crect.h"

class VGuiRect
{
public:
	constexpr VGuiRect() = default;
	constexpr VGuiRect(double left, double top, double right, double bottom)
	: left(left),
	  top(top),
	  right(right),
	  bottom(bottom)
	{}
	explicit VGuiRect(const VSTGUI::CRect& r) : VGuiRect(r.left, r.top, r.right, r.bottom) {}

	VSTGUI::CRect toCRect() const { return VSTGUI::CRect(left, top, right, bottom); }

	double width() const { return right - left; }
	double height() const { return bottom - top; }
	VGuiPoint topLeft() const { return {left, top}; }
	// True for the all-zero rectangle, the absence of a rectangle.
	bool isNull() const { return left == 0.0 && top == 0.0 && right == 0.0 && bottom == 0.0; }

	// Swaps left with right and top with bottom where they are reversed.
	void normalise();
	// The smallest rectangle holding both; a null rectangle adds nothing.
	VGuiRect join(const VGuiRect& other) const;
	// The common part. Both results are null unless they are ordered and have
	// a width or a height: a single point is empty, a line is not.
	VGuiRect intersect(const VGuiRect& other) const;
	void moveBy(const VGuiPoint& d);
	// Grown by a pixel on every side to whole pixels: what anti-aliased
	// drawing inside the rectangle may touch.
	VGuiRect pixelBounds() const;

	bool operator==(const VGuiRect& r) const
	{
		return left == r.left && top == r.top && right == r.right && bottom == r.bottom;
	}
	bool operator!=(const VGuiRect& r) const { return !(*this == r); }

	double left = 0.0;
	double top = 0.0;
	double right = 0.0;
	double bottom = 0.0;

private:
	VGuiRect nullUnlessExtended() const;
};
