// Turns a stream of line segments, clipped or not, into as few polylines as
// possible: a polyline ends only where the drawing jumps (a move, or a
// segment that leaves the clip rectangle) or when it reaches the capacity.
#pragma once

#include "vgui/vguicolour.h"
#include "vgui/vguipoint.h"
#include "vgui/vguirect.h"

#include "osi/containers/colist.h"

#include "vstgui/lib/clinestyle.h"

#include <vector>

class VGuiGfxPolylineBuilder
{
public:
	// capacity: the most points of one polyline, usually the number of data
	// points; a builder of capacity 0 builds nothing.
	VGuiGfxPolylineBuilder(int capacity, const VGuiColour& lineColour, const VGuiColour& fillColour,
	                       const VSTGUI::CLineStyle& lineStyle, double lineWidth);
	// Releases the polylines never handed on.
	~VGuiGfxPolylineBuilder();
	VGuiGfxPolylineBuilder(const VGuiGfxPolylineBuilder&) = delete;
	VGuiGfxPolylineBuilder& operator=(const VGuiGfxPolylineBuilder&) = delete;

	// Starts a new polyline at p, finishing the current one if it has a
	// line; a move to the current end point changes nothing.
	void moveTo(const VGuiPoint& p);
	// Extends the current polyline to p unless it is full or p is its end
	// point. Without a current point this is a move.
	void lineTo(const VGuiPoint& p);
	// The same for the part of the segment inside clip: where the segment
	// enters the rectangle a new polyline starts, and where it leaves the
	// builder moves on to p, from where the next segment starts.
	void lineTo(const VGuiPoint& p, const VGuiRect& clip);
	// Finishes the current polyline and hands every polyline, in the order
	// made, to the list (a VGuiGfxPolyline* each, with the builder's
	// reference), each inserted at the front when atFront is set, else
	// appended. The builder then starts afresh.
	void putPolylines(OsiList& polylines, bool atFront);

private:
	bool isFull() const { return points.size() >= capacity; }
	// Adds p unless the buffer is full or p is its last point.
	void append(const VGuiPoint& p);
	void finishPolyline();

	size_t capacity;
	VGuiColour lineColour;
	VGuiColour fillColour;
	VSTGUI::CLineStyle lineStyle;
	double lineWidth;
	std::vector<VGuiPoint> points;
	OsiList finished;
};
