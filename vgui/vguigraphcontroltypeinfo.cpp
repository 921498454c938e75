#include "vgui/vguigraphcontroltypeinfo.h"

#include "vgui/vgui2dgraph.h"
#include "vgui/vguidecibelaxis.h"
#include "vgui/vguigraphaxis.h"
#include "vgui/vguilinearaxis.h"
#include "vgui/vguilogaxis.h"

VGuiGraphControlTypeInfo::VGuiGraphControlTypeInfo(VGuiGraphAxisType xType, VGuiGraphAxisType yType,
                                                   const char* xTitle, const char* yTitle)
: xAxisType(xType),
  yAxisType(yType),
  xAxisTitle(xTitle ? xTitle : ""),
  yAxisTitle(yTitle ? yTitle : "")
{}

VGuiGraphAxis* VGuiGraphControlTypeInfo::createAxis(VGuiGraphAxisType type, bool horizontal) const
{
	switch (type)
	{
	case VGuiGraphLinearAxis:
		return new VGuiLinearAxis(horizontal);
	case VGuiGraphLogAxis:
		return new VGuiLogAxis(horizontal);
	case VGuiGraphDecibelAxis:
	case VGuiGraphPowerDecibelAxis:
	{
		auto* axis = new VGuiDecibelAxis(horizontal, false);
		axis->power = type == VGuiGraphPowerDecibelAxis;
		return axis;
	}
	default:
		return nullptr;
	}
}

namespace {

// Puts a new axis into its slot; an unknown type leaves the slot as it is.
VGuiGraphAxis* placeAxis(VGuiGraph* graph, VGuiGraphAxis** slot, VGuiGraphAxis* axis,
                         VGuiGraphGrid* grid, VGuiGraphChanges changes)
{
	if (!axis)
		return nullptr;
	graph->replaceAxis(slot, axis, grid, changes, false);
	axis->release();
	return axis;
}

// A power axis stays one; the flag can only ask for power decibels.
void label(VGuiGraphAxis* axis, bool power, const string_ext<char>& title,
           const OsiCompositeUnitLabel& units)
{
	axis->power = axis->power || power;
	axis->title = title;
	axis->units = units;
}

} // namespace

void VGuiGraphControlTypeInfo::initialiseGraph(VGui2dGraph* graph, double xMaximum, double xMinimum,
                                               double yMaximum, double yMinimum, double yReference,
                                               double yMaximumSpan) const
{
	graph->beginUpdate();
	graph->autoScaleMode(autoScaleMode);
	graph->autoScale(autoScale, true);
	if (auto* x = placeAxis(graph, graph->xAxisSlot(), createAxis(xAxisType, true), graph->xGrid(),
	                        VGuiGraphXRangeChanged | VGuiGraphAxisReplaced))
		label(x, xAxisPower, xAxisTitle, xUnits);
	if (auto* y = placeAxis(graph, graph->yAxisSlot(), createAxis(yAxisType, false), graph->yGrid(),
	                        VGuiGraphYRangeChanged | VGuiGraphAxisReplaced))
	{
		label(y, yAxisPower, yAxisTitle, yUnits);
		y->decibelReference = yReference;
		if (yMaximumSpan >= 0.0 && yMaximumSpan < 200.0)
			y->maximumDecibelSpan(yMaximumSpan);
	}
	graph->range(VGuiGraphPoint(xMaximum, yMaximum, 0.0), VGuiGraphPoint(xMinimum, yMinimum, 0.0),
	             VGuiGraphPoint(0.0, 0.0, 0.0));
	graph->endUpdate();
}
