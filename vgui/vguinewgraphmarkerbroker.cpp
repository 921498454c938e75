#include "vgui/vguinewgraphmarkerbroker.h"

#include "vgui/vguidatamarker.h"
#include "vgui/vguidifferentialdatamarker.h"
#include "vgui/vguiharmonicdatamarker.h"
#include "vgui/vguiintegraldatamarker.h"

VGuiGraphMarker* VGuiNewGraphMarkerBroker::create(VGuiGraph* graph, VGuiGraphMarkerType type)
{
	if (!graph)
		return nullptr;
	const VGuiGraphPoint origin;
	switch (type)
	{
	case VGuiDataMarkerType:
		return new VGuiDataMarker(graph, nullptr, 0, origin);
	case VGuiHarmonicDataMarkerType:
		return new VGuiHarmonicDataMarker(graph, nullptr, 0, origin);
	case VGuiIntegralDataMarkerType:
		return new VGuiIntegralDataMarker(graph, nullptr, 0, origin, 0);
	case VGuiDifferentialDataMarkerType:
		return new VGuiDifferentialDataMarker(graph, nullptr, 0, origin, 0);
	default:
		return nullptr;
	}
}
