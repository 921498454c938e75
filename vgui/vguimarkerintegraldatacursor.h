// A data cursor that pins an integral marker between a drag's start and end
// (unless cancelled).
#pragma once

#include "vgui/vguidatacursor.h"

class VGuiMarkerIntegralDataCursor : public VGuiDataCursor
{
public:
	using VGuiDataCursor::VGuiDataCursor;

	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled) override;
};
