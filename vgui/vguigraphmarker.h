// A read-out pinned to a plot's data: a graph element that the graph keeps
// in its marker list, hears events after the free elements, can be hit at a
// point, and follows plots that the graph replaces. The markers themselves
// derive from it.
#pragma once

#include "vgui/vguigraphelement.h"

class VGuiGraphPlot;

class VGuiGraphMarker : public VGuiGraphElement
{
public:
	using VGuiGraphElement::VGuiGraphElement;

	// Inside the hit rectangle, whose right and bottom edges are outside.
	bool contains(const VGuiPoint& p) const
	{
		return hit.left <= p.x && p.x < hit.right && hit.top <= p.y && p.y < hit.bottom;
	}
	virtual void notifyPlotReplaced(VGuiGraphPlot*, VGuiGraphPlot*) {}

protected:
	// Filled when the marker lays itself out.
	VGuiRect hit;
};
