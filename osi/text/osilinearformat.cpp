#include "osi/text/osilinearformat.h"

#include "osi/text/osinumbertostring.h"

const string_ext<char>& OsiLinearFormat::format(double value, int precision) const
{
	const OsiNumberToString number(true);
	number.format(value, precision);
	text.sprintf("%s%s", number.c_str(), unitText().c_str());
	return text;
}
