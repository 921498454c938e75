#include "vgui/vguizoomoutcursor.h"

#include "vgui/vguigraph.h"

void VGuiZoomOutCursor::endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled)
{
	if (cancelled || !owner)
		return;
	owner->zoomOut(a, b);
	owner->autoScale(false, false);
}
