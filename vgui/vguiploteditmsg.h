// What a graph control tells its plot-edit listeners when a filter
// adjustment ends: the control, the section drawn (not owned by the message)
// and whether the drag was cancelled.
#pragma once

#include "osi/runtime/cocallback.h"

class VGuiGenericFilterSection;
class VGuiGraphControl;

struct VGuiPlotEditMsg
{
	VGuiGraphControl* control;
	VGuiGenericFilterSection* section;
	bool cancelled;
};

// Listeners are called with a VGuiPlotEditMsg*.
using VGuiPlotEditMsgCallbackInstance = OsiCallbackInstance;
