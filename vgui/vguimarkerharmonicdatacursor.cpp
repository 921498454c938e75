#include "vgui/vguimarkerharmonicdatacursor.h"

#include "vgui/vguiharmonicdatamarker.h"

void VGuiMarkerHarmonicDataCursor::endAction(const VGuiPoint&, const VGuiPoint&, bool cancelled)
{
	if (cancelled || !owner || !data())
		return;
	placeMarker(new VGuiHarmonicDataMarker(owner, plot(), index(), harmonic(0)));
}
