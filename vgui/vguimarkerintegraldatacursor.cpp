#include "vgui/vguimarkerintegraldatacursor.h"

#include "vgui/vguiintegraldatamarker.h"

void VGuiMarkerIntegralDataCursor::endAction(const VGuiPoint&, const VGuiPoint&, bool cancelled)
{
	if (cancelled || !owner || !data())
		return;
	placeMarker(new VGuiIntegralDataMarker(owner, plot(), index(), dataPoint(), startIndex()));
}
