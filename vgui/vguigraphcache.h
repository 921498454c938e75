// A picture of a graph without its cursor, kept at the pixel scale of the
// context it is shown in. While only the cursor moves, a repaint copies the
// picture and draws the cursor over it instead of drawing the whole graph
// again; whatever the graph reports changed below the cursor is redrawn into
// the picture first.
#pragma once

#include "vgui/vguirect.h"

#include "vstgui/lib/coffscreencontext.h"

class VGuiGraph;

class VGuiGraphCache
{
public:
	// Paints the graph's part in update into context; view is the graph's
	// place in the context's coordinates (its picture's extent).
	void paint(VGuiGraph& graph, VSTGUI::CDrawContext* context, const VGuiRect& view,
	           const VGuiRect& update);

private:
	// A picture that cannot serve context is made afresh, whole.
	bool fits(const VSTGUI::CDrawContext* context, const VGuiRect& view) const;
	void make(const VGuiGraph& graph, const VSTGUI::CDrawContext* context, const VGuiRect& view);
	// Draws the graph without its cursor into the picture, inside area.
	void redraw(const VGuiGraph& graph, const VGuiRect& area);

	VSTGUI::SharedPointer<VSTGUI::COffscreenContext> picture;
	VGuiRect place;
	VSTGUI::CDrawMode mode;
};
