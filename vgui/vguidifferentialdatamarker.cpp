#include "vgui/vguidifferentialdatamarker.h"

#include "vgui/vguidifferentialcursormsg.h"

void VGuiDifferentialDataMarker::realize(VSTGUI::CDrawContext* context)
{
	if (!beginRealize())
		return;
	const VGuiDifferentialCursorMsg message(owner, "", precision(), dataId(),
	                                        dataPoint(startIndex).x, dataPoint(dataIndex).x,
	                                        dataPoint(startIndex).y, dataPoint(dataIndex).y);
	realizeMarkerBracket(context, startIndex, dataIndex, message.text());
	endRealize();
}
