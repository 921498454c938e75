// A VSTGUI view that hosts a graph without a window: it gives the graph its
// extent (the view's size), receives the graph's invalid rectangles, and
// paints the graph offscreen into a picture. The picture tool and the tests
// draw graphs through it.
#pragma once

#include "vgui/vguigraph.h"
#include "vgui/vguireference.h"

#include "vstgui/lib/cview.h"

#include <vector>

class VGuiGraphPictureView : public VSTGUI::CView
{
public:
	// Shows the graph (taking a reference on it) on a view of the given
	// size: attached, opened and placed.
	VGuiGraphPictureView(VGuiGraph* graph, double width, double height);
	~VGuiGraphPictureView() override;

	void draw(VSTGUI::CDrawContext* context) override;
	// The graph painted at scale times the view's size, as PNG bytes; empty
	// when drawing fails.
	std::vector<unsigned char> png(double scale = 1.0) { return png(*this, scale); }
	// Any view (a whole frame, say) painted alike.
	static std::vector<unsigned char> png(VSTGUI::CView& view, double scale);

	VGuiGraph* graph() const { return shown.get(); }

private:
	VGuiReference<VGuiGraph> shown;
};
