#include "vgui/vguizoomincursor.h"

#include "vgui/vguigraph.h"

void VGuiZoomInCursor::endAction(const VGuiPoint& a, const VGuiPoint& b, bool)
{
	if (!owner)
		return;
	owner->zoomIn(a, b);
	owner->autoScale(false, false);
}
