// The spacing by which integral read-outs multiply the sum of the data's y
// values in place of the x distance per point, with the unit that the
// product gains (e.g. hertz per bin), and a flag for its owner's use.
#pragma once

#include "osi/text/osicompositeunitlabel.h"

class GuiIntegralCursorMultiplier
{
public:
	GuiIntegralCursorMultiplier() = default;
	GuiIntegralCursorMultiplier(double factor, bool flag) : factor(factor), flag(flag) {}
	GuiIntegralCursorMultiplier(double factor, const OsiCompositeUnitLabel& units)
	: factor(factor),
	  units(units)
	{}

	double factor = 1.0;
	OsiCompositeUnitLabel units;
	bool flag = false;
};
