#include "vgui/vguimarkerdatacursor.h"

#include "vgui/vguidatamarker.h"

void VGuiMarkerDataCursor::endAction(const VGuiPoint&, const VGuiPoint&, bool cancelled)
{
	if (cancelled || !owner || !data())
		return;
	placeMarker(new VGuiDataMarker(owner, plot(), index(), dataPoint()));
}
