#include "vgui/vguipancursor.h"

#include "vgui/vguigraph.h"

void VGuiPanCursor::endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled)
{
	if (cancelled || !owner)
		return;
	owner->pan(a, b);
	owner->autoScale(false, false);
}
