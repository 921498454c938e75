#include "vgui/vguimarkererasedatacursor.h"

#include "vgui/vguigraph.h"

void VGuiMarkerEraseDataCursor::endAction(const VGuiPoint&, const VGuiPoint& b, bool cancelled)
{
	if (cancelled || !owner)
		return;
	owner->removeMarker(b);
}
