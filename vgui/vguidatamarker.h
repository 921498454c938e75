// A marker on one data point: a cross on it and "x, y" in a box above and to
// the right, tied to the point.
#pragma once

#include "vgui/vguigraphmarker.h"

class VGuiDataMarker : public VGuiGraphMarker
{
public:
	VGuiDataMarker(VGuiGraph* graph, VGuiGraphPlot* plot, int index, const VGuiGraphPoint& point)
	: VGuiGraphMarker(VGuiDataMarkerType, graph, plot, index, point)
	{}

	VGuiDataMarker* copy() const override { return new VGuiDataMarker(*this); }
	void realize(VSTGUI::CDrawContext* context) override;
};
