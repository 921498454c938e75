// A marker of the difference between two data points: a bracket over them
// with the difference read-out.
#pragma once

#include "vgui/vguigraphmarker.h"

class VGuiDifferentialDataMarker : public VGuiGraphMarker
{
public:
	// From data point start to data point index.
	VGuiDifferentialDataMarker(VGuiGraph* graph, VGuiGraphPlot* plot, int index,
	                           const VGuiGraphPoint& point, int start)
	: VGuiGraphMarker(VGuiDifferentialDataMarkerType, graph, plot, index, point),
	  startIndex(start)
	{}

	VGuiDifferentialDataMarker* copy() const override
	{
		return new VGuiDifferentialDataMarker(*this);
	}
	void realize(VSTGUI::CDrawContext* context) override;

	int startIndex;
};
