// How grids draw their lines: colour, line style and width. Reference
// counted: a graph's grids share one set.
#pragma once

#include "vgui/vguicolour.h"

#include "osi/base/referencecount.h"

#include "vstgui/lib/clinestyle.h"

class VGuiGraphGridProperties : public OsiReferenceCount
{
public:
	VGuiColour colour{64, 64, 64, 255};
	VSTGUI::CLineStyle lineStyle{VSTGUI::kLineSolid};
	double lineWidth = 1.0;
};
