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

	// The area between data indices i1 and i2 from x1 to x2.
	double integral(int i1, int i2, double x1, double x2) const;
};
