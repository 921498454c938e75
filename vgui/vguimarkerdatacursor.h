// A data cursor that pins a data marker where a drag ends (unless
// cancelled).
#pragma once

#include "vgui/vguidatacursor.h"

class VGuiMarkerDataCursor : public VGuiDataCursor
{
public:
	using VGuiDataCursor::VGuiDataCursor;

	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled) override;
};
