// Reads the area under the focused data between the drag's start and the
// pointer: the sum of the y values of the points between them (both
// included) times the spacing, which is the graph's integral multiplier's
// factor when it has one and otherwise the x distance per point.
#pragma once

#include "vgui/vguidatacursor.h"

class VGuiIntegralDataCursor : public VGuiDataCursor
{
public:
	using VGuiDataCursor::VGuiDataCursor;

	void notifyConstrainedDataCursorMsg(VGuiGraphPoint& point, VGuiGraphPoint& start,
	                                    VGuiGraphPoint& third, int dataId, int index,
	                                    bool changed) override;
};
