#include "osi/text/osinumbertostring.h"

#include "osi/text/osiengineeringsuffix.h"

#include <cmath>

const OsiNumberToString& OsiNumberToString::format(double value, int precision) const
{
	// Unscaled unless the power of ten lies in the band of the letters.
	int exponent = 0;
	const double power = std::floor(std::log10(std::fabs(value)));
	if (value != 0 && power >= -15 && power <= 14)
		exponent = static_cast<int>(power);
	return engineeringFormat(value, exponent, precision);
}

const OsiNumberToString& OsiNumberToString::engineeringFormat(double value, int exponent,
                                                              int precision) const
{
	char letter = 0;
	double scale = 1;
	OsiEngineeringSuffix::forExponent(exponent, letter, scale);
	// A NUL letter ends the text right after the number (and its blank).
	result.sprintf(spaceBeforeSuffix ? "%.*g %c" : "%.*g%c", precision, value * scale, letter);
	return *this;
}
