#include "vgui/vguiconstraineddatacursor.h"

VGuiConstrainedDataCursor::VGuiConstrainedDataCursor(VGuiGraph* graph, bool interpolate,
                                                     bool crossHairs,
                                                     VGuiConstrainedDataCursorMode mode)
: VGuiDataCursor(graph, interpolate, crossHairs),
  mode(mode)
{}

void VGuiConstrainedDataCursor::notifyConstrainedDataCursorMsg(VGuiGraphPoint& p,
                                                               VGuiGraphPoint& start,
                                                               VGuiGraphPoint& third, int dataId,
                                                               int index, bool changed)
{
	if (dragging && mode == VGuiConstrainFollowX)
		p.y = start.y;
	else if (dragging && mode == VGuiConstrainFollowY)
		p.x = start.x;
	VGuiDataCursor::notifyConstrainedDataCursorMsg(p, start, third, dataId, index, changed);
}
