// A data cursor that removes the marker under the point where a drag ends
// (unless cancelled).
#pragma once

#include "vgui/vguidatacursor.h"

class VGuiMarkerEraseDataCursor : public VGuiDataCursor
{
public:
	using VGuiDataCursor::VGuiDataCursor;

	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled) override;
};
