// Reads the difference between the focused data at the drag's start and at
// the pointer.
#pragma once

#include "vgui/vguidatacursor.h"

class VGuiDifferentialDataCursor : public VGuiDataCursor
{
public:
	using VGuiDataCursor::VGuiDataCursor;

	void notifyConstrainedDataCursorMsg(VGuiGraphPoint& point, VGuiGraphPoint& start,
	                                    VGuiGraphPoint& third, int dataId, int index,
	                                    bool changed) override;
};
