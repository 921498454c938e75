#include "osi/text/osistringtonumber.h"

#include "osi/text/osiengineeringsuffix.h"

#include <cstdio>

bool OsiStringToNumber::convert(const char* text)
{
	valid = false;
	errorMessage = kInvalidFormat;
	if (!text)
		return false;
	if (!convertFloating(text) && !convertInteger(text))
		return false;
	return checkRange();
}

// A number and at most one character after it, which must be a suffix
// letter: "12 " (a trailing blank) is refused.
bool OsiStringToNumber::convertFloating(const char* text)
{
	char suffix = 0;
	const int items = std::sscanf(text, "%lf%c", &value, &suffix);
	if (items == 1)
		return valid = true;
	if (items != 2)
		return false;
	double factor = 1;
	if (!OsiEngineeringSuffix::factorOf(suffix, factor))
	{
		errorMessage = kInvalidSuffix;
		return false;
	}
	value *= factor;
	return valid = true;
}

// An integer with nothing after it, in any base that %i reads.
bool OsiStringToNumber::convertInteger(const char* text)
{
	int integer = 0;
	char after = 0;
	if (std::sscanf(text, "%i%c", &integer, &after) != 1)
		return false;
	value = integer;
	return valid = true;
}

bool OsiStringToNumber::checkRange()
{
	if (maximum == minimum)
		return valid;
	if (value > maximum)
		errorMessage = kAboveMaximum;
	else if (value < minimum)
		errorMessage = kBelowMinimum;
	else
		return valid;
	return valid = false;
}
