// A marker of a fundamental and its harmonics on the data: a cross on each
// and the fundamental's "x, y" in a box beside the first.
#pragma once

#include "vgui/vguigraphmarker.h"

class VGuiHarmonicDataMarker : public VGuiGraphMarker
{
public:
	VGuiHarmonicDataMarker(VGuiGraph* graph, VGuiGraphPlot* plot, int index,
	                       const VGuiGraphPoint& point)
	: VGuiGraphMarker(VGuiHarmonicDataMarkerType, graph, plot, index, point)
	{}

	VGuiHarmonicDataMarker* copy() const override { return new VGuiHarmonicDataMarker(*this); }
	void realize(VSTGUI::CDrawContext* context) override;

protected:
	// Crosses on the harmonics of fundamental found from the data point at
	// the marker's index.
	void realizeMarkerCrosses(VSTGUI::CDrawContext* context, const VGuiGraphPoint& fundamental);
};
