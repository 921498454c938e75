#include "vgui/vguilogaxis.h"

#include "osi/text/osilinearformat.h"

namespace {

// Fewer labels than this from the decades and their 2 and 5 read better as
// linear steps.
constexpr int kLeastDecadeLabels = 3;

} // namespace

VGuiLogAxis::VGuiLogAxis(bool horizontal) : VGuiGraphAxis(horizontal)
{
	spanDecibels = 60.0;
}

std::unique_ptr<OsiValueFormat> VGuiLogAxis::createValueFormat() const
{
	return std::make_unique<OsiLinearFormat>(units);
}

VGuiGraphAxisTicks VGuiLogAxis::layoutTicks(double, int level) const
{
	if (!(minValue > 0.0) || !(maxValue > minValue))
		return VGuiGraphAxisTicks();
	VGuiGraphAxisTicks ticks = VGuiGraphAxisTicks::decades(minValue, maxValue, 1, true);
	if (ticks.majorCount() < kLeastDecadeLabels)
		return VGuiGraphAxisTicks::linear(
		    minValue, maxValue, VGuiGraphAxisTicks::niceStep(leastStep(minValue, maxValue), level),
		    VGuiGraphAxisTicks::engineeringExponent(minValue, maxValue));
	if (level <= 0)
		return ticks;
	return VGuiGraphAxisTicks::decades(minValue, maxValue, level, false);
}
