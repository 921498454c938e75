// A harmonic cursor that pins a harmonic marker on the fundamental where a
// drag ends (unless cancelled).
#pragma once

#include "vgui/vguiharmonicdatacursor.h"

class VGuiMarkerHarmonicDataCursor : public VGuiHarmonicDataCursor
{
public:
	using VGuiHarmonicDataCursor::VGuiHarmonicDataCursor;

	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled) override;
};
