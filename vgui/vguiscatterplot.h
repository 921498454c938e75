// A plot that draws a marker at each of its data's points inside the
// graph's ranges.
#pragma once

#include "vgui/vguigenericscatterplotmarker.h"
#include "vgui/vguisinglegraphdataplot.h"

class VGuiScatterPlot : public VGuiSingleGraphDataPlot
{
public:
	VGuiScatterPlot(int identifier, VGuiGraphData* data, VGuiGenericScatterPlotMarker* marker,
	                VGuiGraphPlotProperties* properties = nullptr);

	// A new plot of the same data, marker and properties.
	VGuiScatterPlot* copy() const { return new VGuiScatterPlot(*this); }
	// Draws with another marker (taking a reference on it) from the next
	// layout on.
	void plotMarker(VGuiGenericScatterPlotMarker* marker);
	void realize(VSTGUI::CDrawContext* context) override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;

protected:
	VGuiScatterPlot(const VGuiScatterPlot&) = default;

private:
	VGuiReference<VGuiGenericScatterPlotMarker> marker;
};
