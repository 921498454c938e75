#include "vgui/vguimarkerdifferentialdatacursor.h"

#include "vgui/vguidifferentialdatamarker.h"

void VGuiMarkerDifferentialDataCursor::endAction(const VGuiPoint&, const VGuiPoint&, bool cancelled)
{
	if (cancelled || !owner || !data())
		return;
	placeMarker(new VGuiDifferentialDataMarker(owner, plot(), index(), dataPoint(), startIndex()));
}
