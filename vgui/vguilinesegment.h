// A straight segment between two points, clipped to rectangles when graphs
// draw their data and intersected with other segments.
#pragma once

#include "vgui/vguipoint.h"
#include "vgui/vguirect.h"

class VGuiLineSegment
{
public:
	VGuiLineSegment() = default;
	VGuiLineSegment(const VGuiPoint& start, const VGuiPoint& end) : start(start), end(end) {}

	// Cuts the segment down to its part inside the rectangle (edges
	// included), keeping its direction; false, changing nothing, when no part
	// is inside. An end that is inside stays exactly as it was.
	bool clip(const VGuiRect& rect);
	// True when some part lies inside the rectangle.
	bool intersect(const VGuiRect& rect) const;
	// True when the two segments cross or touch at a single point, which is
	// stored in at; parallel segments never do.
	bool intersect(const VGuiLineSegment& other, VGuiPoint& at) const;

	VGuiPoint start;
	VGuiPoint end;
};
