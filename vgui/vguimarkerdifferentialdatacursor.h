// A data cursor that pins a differential marker between a drag's start and
// end (unless cancelled).
#pragma once

#include "vgui/vguidatacursor.h"

class VGuiMarkerDifferentialDataCursor : public VGuiDataCursor
{
public:
	using VGuiDataCursor::VGuiDataCursor;

	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled) override;
};
