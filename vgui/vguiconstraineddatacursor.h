// A data cursor whose read-out follows only one coordinate of the data while
// dragging (see VGuiConstrainedDataCursorMode); the filter-adjustment
// cursors build on it.
#pragma once

#include "vgui/vguiconstraineddatacursormode.h"
#include "vgui/vguidatacursor.h"

class VGuiConstrainedDataCursor : public VGuiDataCursor
{
public:
	VGuiConstrainedDataCursor(VGuiGraph* graph, bool interpolate, bool crossHairs,
	                          VGuiConstrainedDataCursorMode mode);

	void notifyConstrainedDataCursorMsg(VGuiGraphPoint& point, VGuiGraphPoint& start,
	                                    VGuiGraphPoint& third, int dataId, int index,
	                                    bool changed) override;

private:
	VGuiConstrainedDataCursorMode mode;
};
