// The tool that the mouse drives on a graph (zoom, pan, data read-outs): a
// graph element that hears every event last and follows plots that the
// graph replaces. The cursors themselves derive from it.
#pragma once

#include "vgui/vguigraphelement.h"

class VGuiGraphPlot;

class VGuiGraphCursor : public VGuiGraphElement
{
public:
	using VGuiGraphElement::VGuiGraphElement;

	// old has been replaced by replacement on the graph (both the same plot
	// when its data changed).
	virtual void notifyPlotReplaced(VGuiGraphPlot*, VGuiGraphPlot*) {}
};
