#include "osi/text/osidecibelformat.h"

#include "osi/text/osinumbertostring.h"

#include <cmath>

OsiDecibelFormat::OsiDecibelFormat(const OsiCompositeUnitLabel& units, double reference,
                                   bool isPower, bool isDecibels)
: OsiValueFormat(units),
  isPower(isPower),
  isDecibels(isDecibels),
  factor(isPower ? 10 : 20),
  reference(reference)
{}

const string_ext<char>& OsiDecibelFormat::format(double value, int precision) const
{
	if (reference <= 0 || (!isDecibels && value <= 0))
	{
		text = kCannotDisplay;
		return text;
	}
	const double level = isDecibels ? value : factor * std::log10(value / reference);
	const OsiNumberToString referenceText(true);
	referenceText.format(reference, precision);
	text.sprintf("%.*g %s[re %s%s]", precision, level, "dB", referenceText.c_str(),
	             unitText().c_str());
	return text;
}

void OsiDecibelFormat::multiplyBy(double by, const OsiCompositeUnitLabel& byUnits)
{
	OsiValueFormat::multiplyBy(by, byUnits);
	reference *= by;
}
