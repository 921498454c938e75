// The plain data read-out: reports the data point that it snaps to whenever
// it moves, and while dragging draws cross-hairs through it across the plot
// area.
#pragma once

#include "vgui/vguidatacursorbase.h"

class VGuiDataCursor : public VGuiDataCursorBase
{
public:
	// crossHairs: draw them while dragging.
	VGuiDataCursor(VGuiGraph* graph, bool interpolate, bool crossHairs);

	void realize(VSTGUI::CDrawContext* context) override;
	void notifyConstrainedDataCursorMsg(VGuiGraphPoint& point, VGuiGraphPoint& start,
	                                    VGuiGraphPoint& third, int dataId, int index,
	                                    bool changed) override;

protected:
	// Horizontal and vertical lines through p across the plot area.
	void realizeCrossHairs(const VGuiPoint& p);

private:
	bool crossHairs;
};
