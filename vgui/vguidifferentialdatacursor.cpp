#include "vgui/vguidifferentialdatacursor.h"

#include "vgui/vguidifferentialcursormsg.h"

#include <memory>

void VGuiDifferentialDataCursor::notifyConstrainedDataCursorMsg(VGuiGraphPoint& p,
                                                                VGuiGraphPoint& startPoint,
                                                                VGuiGraphPoint& third, int id,
                                                                int index, bool changed)
{
	VGuiDataCursor::notifyConstrainedDataCursorMsg(p, startPoint, third, id, index, changed);
	if (!dragging || !changed)
		return;
	measurementMessages.send(std::make_unique<VGuiDifferentialCursorMsg>(
	    owner, measurementMessages.label, precision(), id, startPoint.x, p.x, startPoint.y, p.y));
}
