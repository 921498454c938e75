// The two-dimensional graph: a plot area inside the extent, framed by a
// bevel, with room around it for the graph's title and the axes' labels and
// titles. From the outside in: the margins, the graph's title (above) and
// the axes' labels and titles, the border space, the bevel (its width from
// the frame properties), the plot area.
#pragma once

#include "vgui/vguigfxgroup.h"
#include "vgui/vguigraph.h"

class VGuiGfxText;

class VGui2dGraph : public VGuiGraph
{
public:
	explicit VGui2dGraph(GuiIntegralCursorMultiplier* multiplier);
	// With the axes in place (each may be null; the graph takes references).
	VGui2dGraph(GuiIntegralCursorMultiplier* multiplier, VGuiGraphAxis* x, VGuiGraphAxis* y,
	            VGuiGraphAxis* z);

	VGuiGraph* copy() const override { return new VGui2dGraph(*this); }
	// Empty space at the extent's edges, in pixels.
	void setMargins(double left, double top, double right, double bottom);
	// Empty space between the bevel and the axes' tick marks, in pixels.
	void borderSpace(double space);

protected:
	VGui2dGraph(const VGui2dGraph& other);

	void realizeFrame(VSTGUI::CDrawContext* context) override;
	void drawBackground(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	void drawFrame(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	double frameOutset() const override;

private:
	// The plot area left inside the extent by the margins, the title's room,
	// the border and the axes' room, as laid out for a plot area of about
	// the given size.
	VGuiRect plotAreaFor(VSTGUI::CDrawContext* context, const VGuiRect& guess,
	                     double titleRoom) const;
	// The graph's title, measured, at the top; null without a title.
	VGuiGfxText* titleText(VSTGUI::CDrawContext* context) const;

	VGuiRect margins{8.0, 8.0, 8.0, 8.0};
	double space = 2.0;
	VGuiGfxGroup background;
	VGuiGfxGroup frame;
};
