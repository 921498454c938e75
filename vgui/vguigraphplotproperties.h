// How a plot draws its data: line and fill colour, line style and width.
// Reference counted: plots share them (e.g. one per colour category).
#pragma once

#include "vgui/vguicolour.h"

#include "osi/base/referencecount.h"

#include "vstgui/lib/clinestyle.h"

class VGuiGraphPlotProperties : public OsiReferenceCount
{
public:
	// Green lines and fill, solid, 1 pixel wide.
	VGuiGraphPlotProperties() = default;
	VGuiGraphPlotProperties(const VGuiColour& lineColour, const VGuiColour& fillColour,
	                        const VSTGUI::CLineStyle& lineStyle, double lineWidth)
	: lineColour(lineColour),
	  fillColour(fillColour),
	  lineStyle(lineStyle),
	  lineWidth(lineWidth)
	{}

	VGuiColour lineColour{0, 255, 0, 255};
	VGuiColour fillColour{0, 255, 0, 255};
	VSTGUI::CLineStyle lineStyle{VSTGUI::kLineSolid};
	double lineWidth = 1.0;
};
