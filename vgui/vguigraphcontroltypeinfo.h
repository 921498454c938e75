// What a graph control's graph is made of: the kinds, titles and units of
// its axes, whether their decibels are of power, and how it scales itself.
#pragma once

#include "vgui/vguigraphautoscalemode.h"
#include "vgui/vguigraphaxistype.h"

#include "osi/base/string_ext.h"
#include "osi/text/osicompositeunitlabel.h"

class VGui2dGraph;
class VGuiGraphAxis;

class VGuiGraphControlTypeInfo
{
public:
	// A null title is an empty one.
	VGuiGraphControlTypeInfo(VGuiGraphAxisType xType, VGuiGraphAxisType yType, const char* xTitle,
	                         const char* yTitle);

	// A new axis of the type (horizontal handed on); null for an unknown type.
	VGuiGraphAxis* createAxis(VGuiGraphAxisType type, bool horizontal) const;
	// Gives the graph its axes, titles, units, scaling and range: x maximum,
	// x minimum, y maximum, y minimum, the y axis's 0 dB reference and its
	// maximum decibel span (taken when at least 0 and below 200).
	void initialiseGraph(VGui2dGraph* graph, double xMaximum, double xMinimum, double yMaximum,
	                     double yMinimum, double yReference, double yMaximumSpan) const;

	VGuiGraphAxisType xAxisType;
	VGuiGraphAxisType yAxisType;
	string_ext<char> xAxisTitle;
	string_ext<char> yAxisTitle;
	OsiCompositeUnitLabel xUnits;
	OsiCompositeUnitLabel yUnits;
	bool xAxisPower = false;
	bool yAxisPower = false;
	VGuiGraphAutoScaleMode autoScaleMode = VGuiGraphScaleAll;
	bool autoScale = false;
};
