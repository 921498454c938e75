#include "osi/text/osivalueformat.h"

void OsiValueFormat::multiplyBy(double, const OsiCompositeUnitLabel& by)
{
	units.multiply(by);
}

string_ext<char> OsiValueFormat::unitText() const
{
	string_ext<char> printed;
	units.concatenateWith(printed);
	return printed;
}
