// A polyline among the graph's graphic objects: its points, line and fill
// colours, line style and width, and the extent around its points.
// Reference counted: whoever stores one takes a reference.
#pragma once

#include "vgui/vguicolour.h"
#include "vgui/vguipoint.h"
#include "vgui/vguirect.h"

#include "osi/base/referencecount.h"

#include "vstgui/lib/clinestyle.h"

#include <vector>

class VGuiGfxPolyline : public OsiReferenceCount
{
public:
	// count points at (0, 0).
	VGuiGfxPolyline(int count, const VGuiColour& lineColour, const VGuiColour& fillColour,
	                const VSTGUI::CLineStyle& lineStyle, double lineWidth);
	// A copy of points[0 .. count - 1].
	VGuiGfxPolyline(const VGuiPoint* points, int count, const VGuiColour& lineColour,
	                const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
	                double lineWidth);

	int count() const { return static_cast<int>(points.size()); }
	// The point at index i; (0, 0) for an index out of range.
	VGuiPoint point(int i) const;
	// Sets the point at index i; an index out of range changes nothing.
	void point(const VGuiPoint& p, int i);
	// Makes the extent the smallest rectangle around the points.
	void findExtent();
	const VGuiRect& extent() const { return bounds; }
	// The first point.
	VGuiPoint origin() const { return point(0); }
	// Moves every point and the extent.
	void moveBy(const VGuiPoint& d);

	const VGuiColour& lineColour() const { return line; }
	const VGuiColour& fillColour() const { return fill; }
	const VSTGUI::CLineStyle& lineStyle() const { return style; }
	double lineWidth() const { return width; }

private:
	bool holds(int i) const { return i >= 0 && i < count(); }

	std::vector<VGuiPoint> points;
	VGuiRect bounds;
	VGuiColour line;
	VGuiColour fill;
	VSTGUI::CLineStyle style;
	double width;
};
