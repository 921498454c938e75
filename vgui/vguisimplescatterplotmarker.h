// The stock scatter-plot marker: a dot, cross, plus, square, circle or
// triangle of a given size in pixels (its width and height).
#pragma once

#include "vgui/vguigenericscatterplotmarker.h"
#include "vgui/vguiscatterplotmarkertype.h"

class VGuiSimpleScatterPlotMarker : public VGuiGenericScatterPlotMarker
{
public:
	VGuiSimpleScatterPlotMarker(VGuiScatterPlotMarkerType type, int size) : type(type), size(size)
	{}

	void draw(VGuiGfxGroup& group, const VGuiColour& lineColour, const VGuiColour& fillColour,
	          const VSTGUI::CLineStyle& lineStyle, double lineWidth,
	          const VGuiPoint& at) const override;

	VGuiScatterPlotMarkerType type;
	int size;
};
