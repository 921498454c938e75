#include "vgui/vguilinearaxis.h"

#include "osi/text/osilinearformat.h"

std::unique_ptr<OsiValueFormat> VGuiLinearAxis::createValueFormat() const
{
	return std::make_unique<OsiLinearFormat>(units);
}

VGuiGraphAxisTicks VGuiLinearAxis::layoutTicks(double, int level) const
{
	if (!(maxValue > minValue))
		return VGuiGraphAxisTicks();
	return VGuiGraphAxisTicks::linear(
	    minValue, maxValue, VGuiGraphAxisTicks::niceStep(leastStep(minValue, maxValue), level),
	    VGuiGraphAxisTicks::engineeringExponent(minValue, maxValue));
}
