// A plot that draws its data as a line through the points in their order,
// cut where it leaves the graph's ranges.
#pragma once

#include "vgui/vguisinglegraphdataplot.h"

class VGuiLinePlot : public VGuiSingleGraphDataPlot
{
public:
	using VGuiSingleGraphDataPlot::VGuiSingleGraphDataPlot;

	// A new plot of the same data and properties.
	VGuiLinePlot* copy() const { return new VGuiLinePlot(*this); }
	void realize(VSTGUI::CDrawContext* context) override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;

protected:
	VGuiLinePlot(const VGuiLinePlot&) = default;
};
