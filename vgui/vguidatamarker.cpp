#include "vgui/vguidatamarker.h"

#include "vgui/vguidatacursormsg.h"

void VGuiDataMarker::realize(VSTGUI::CDrawContext* context)
{
	if (!beginRealize())
		return;
	const VGuiPoint p = screenPoint(dataIndex);
	const VGuiDataCursorMsg message(owner, "", precision(), dataPoint(dataIndex), dataId());
	const double offset = 12.0;
	const VGuiPoint anchor(p.x + offset, p.y - 2.0 * offset);
	realizeMarkerText(context, anchor, message.text(), props->font, VSTGUI::kLeftText);
	realizeMarkerTie(context, p, VGuiPoint(hit.left, hit.bottom));
	realizeMarkerCross(context, p);
	endRealize();
}
