// A marker of the area under the data between two points: a bracket over
// them with the area read-out.
#pragma once

#include "vgui/vguigraphmarker.h"

class VGuiIntegralDataMarker : public VGuiGraphMarker
{
public:
	// From data point start to data point index.
	VGuiIntegralDataMarker(VGuiGraph* graph, VGuiGraphPlot* plot, int index,
	                       const VGuiGraphPoint& point, int start)
	: VGuiGraphMarker(VGuiIntegralDataMarkerType, graph, plot, index, point),
	  startIndex(start)
	{}

	VGuiIntegralDataMarker* copy() const override { return new VGuiIntegralDataMarker(*this); }
	void realize(VSTGUI::CDrawContext* context) override;

	int startIndex;

private:
	// As the integral data cursor reads it.
	double area() const;
};
