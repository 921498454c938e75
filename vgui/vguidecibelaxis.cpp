#include "vgui/vguidecibelaxis.h"

#include "osi/text/osidecibelformat.h"

#include <algorithm>
#include <cmath>

VGuiDecibelAxis::VGuiDecibelAxis(bool horizontal, bool linearDecibels)
: VGuiGraphAxis(horizontal),
  linearDecibels(linearDecibels)
{
	spanDecibels = 60.0;
	range(valueAt(upperDecibels), valueAt(lowerDecibels));
}

std::unique_ptr<OsiValueFormat> VGuiDecibelAxis::createValueFormat() const
{
	return std::make_unique<OsiDecibelFormat>(units, decibelReference, power, linearDecibels);
}

double VGuiDecibelAxis::transform(double value) const
{
	return linearDecibels ? value : (std::log(value) - logOffset) * scale;
}

double VGuiDecibelAxis::untransform(double t) const
{
	return linearDecibels ? t : std::exp(t / scale + logOffset);
}

double VGuiDecibelAxis::level(double value) const
{
	return linearDecibels ? value : decibelFactor() * std::log10(value / decibelReference);
}

double VGuiDecibelAxis::valueAt(double decibels) const
{
	return linearDecibels ? decibels
	                      : decibelReference * std::pow(10.0, decibels / decibelFactor());
}

VGuiGraphAxisTicks VGuiDecibelAxis::layoutTicks(double, int level) const
{
	if (!accepts(minValue) || !(maxValue > minValue))
		return VGuiGraphAxisTicks();
	const double lo = this->level(minValue);
	const double hi = this->level(maxValue);
	const double least = std::max(leastStep(lo, hi), 1.0);
	return VGuiGraphAxisTicks::linear(lo, hi,
	                                  std::max(VGuiGraphAxisTicks::niceStep(least, level), 1.0), 0);
}

string_ext<char> VGuiDecibelAxis::unitsLabel(int) const
{
	return dBReferenceText(decibelReference, unitsString().c_str());
}
