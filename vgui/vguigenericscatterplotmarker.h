// What a scatter plot draws at each point: any shape that adds itself to a
// group of graphic objects in the plot's colours. Reference counted, so that
// copies of a plot share it.
#pragma once

#include "vgui/vguicolour.h"
#include "vgui/vguigfxgroup.h"
#include "vgui/vguipoint.h"

#include "osi/base/referencecount.h"

#include "vstgui/lib/clinestyle.h"

class VGuiGenericScatterPlotMarker : public OsiReferenceCount
{
public:
	// Adds the marker's shapes centred on at.
	virtual void draw(VGuiGfxGroup& group, const VGuiColour& lineColour,
	                  const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
	                  double lineWidth, const VGuiPoint& at) const = 0;
};
