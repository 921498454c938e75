// The kinds of marker.
#pragma once

enum VGuiGraphMarkerType
{
	VGuiDataMarkerType = 1,
	VGuiHarmonicDataMarkerType = 2,
	VGuiIntegralDataMarkerType = 3,
	VGuiDifferentialDataMarkerType = 4
};
