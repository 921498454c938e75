// A polyline among the graph's graphic objects: a run of points joined by
// straight lines in the line colour, style and width, the area it encloses
// (closed back to the first point) filled with the fill colour. The extent
// is the rectangle around the points, once findExtent has run.
#pragma once

#include "vgui/vguigfxobject.h"

#include <vector>

class VGuiGfxPolyline : public VGuiGfxObject
{
public:
	// count points at (0, 0).
	VGuiGfxPolyline(int count, const VGuiColour& lineColour, const VGuiColour& fillColour,
	                const VSTGUI::CLineStyle& lineStyle, double lineWidth);
	// A copy of points[0 .. count - 1], and the extent around them.
	VGuiGfxPolyline(const VGuiPoint* points, int count, const VGuiColour& lineColour,
	                const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
	                double lineWidth);

	VGuiGfxObject* copy() const override;
	// Draws nothing for fewer than two points.
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	// The first point.
	VGuiPoint origin() const override { return point(0); }
	// Moves every point and the extent.
	void moveBy(const VGuiPoint& d) override;

	int count() const { return static_cast<int>(points.size()); }
	// The point at index i; (0, 0) for an index out of range.
	VGuiPoint point(int i) const;
	// Sets the point at index i; an index out of range changes nothing.
	void point(const VGuiPoint& p, int i);
	// Makes the extent the smallest rectangle around the points.
	void findExtent();

private:
	bool holds(int i) const { return i >= 0 && i < count(); }

	std::vector<VGuiPoint> points;
};
