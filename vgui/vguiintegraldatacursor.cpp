#include "vgui/vguiintegraldatacursor.h"

#include "vgui/vguidataintegral.h"
#include "vgui/vguigraph.h"
#include "vgui/vguiintegralcursormsg.h"

#include <memory>

void VGuiIntegralDataCursor::notifyConstrainedDataCursorMsg(VGuiGraphPoint& p,
                                                            VGuiGraphPoint& startPoint,
                                                            VGuiGraphPoint& third, int id,
                                                            int index, bool changed)
{
	VGuiDataCursor::notifyConstrainedDataCursorMsg(p, startPoint, third, id, index, changed);
	if (!dragging || !changed || !data())
		return;
	measurementMessages.send(std::make_unique<VGuiIntegralCursorMsg>(
	    owner, measurementMessages.label, precision(), id, startPoint.x, p.x,
	    VGuiDataIntegral(*data(), startIndex(), index, startPoint.x, p.x,
	                     owner->integralCursorMultiplier())));
}
