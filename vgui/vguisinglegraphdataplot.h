// A plot of one data set, which it holds by reference.
#pragma once

#include "vgui/vguigraphdata.h"
#include "vgui/vguigraphplot.h"

class VGuiSingleGraphDataPlot : public VGuiGraphPlot
{
public:
	VGuiSingleGraphDataPlot(int identifier, VGuiGraphData* data,
	                        VGuiGraphPlotProperties* properties = nullptr);

	// Holds data instead of the old data and, on a graph, lays the plot out
	// again and tells the graph (with rescale, an auto-scaled graph fits its
	// ranges afresh). The same non-null data again only redraws. True when
	// the data changed.
	bool graphData(VGuiGraphData* data, bool rescale);
	VGuiGraphData* graphData() const { return held.get(); }

	VGuiGraphPoint maximum() const override;
	VGuiGraphPoint minimum() const override;
	VGuiGraphPoint minimumPositive(double fallback) const override;
	int dataCount() const override { return held ? 1 : 0; }
	VGuiGraphData* dataItem(int i) const override { return i == 0 ? held.get() : nullptr; }
	// The data that the focus starts on.
	VGuiGraphData* focusFirst() const { return held.get(); }

protected:
	VGuiSingleGraphDataPlot(const VGuiSingleGraphDataPlot& other);

	// Whether there are points to draw, with a context and a graph to draw
	// them for; the group is emptied either way.
	bool beginRealize(VSTGUI::CDrawContext* context);
	void endRealize();

	VGuiReference<VGuiGraphData> held;
};
