// Makes empty markers of a kind, for whoever restores them by type.
#pragma once

#include "vgui/vguigraphmarkertype.h"

class VGuiGraph;
class VGuiGraphMarker;

class VGuiNewGraphMarkerBroker
{
public:
	// A new marker of the type on the graph (integral and differential from
	// index 0); null for no graph or an unknown type.
	static VGuiGraphMarker* create(VGuiGraph* graph, VGuiGraphMarkerType type);
};
