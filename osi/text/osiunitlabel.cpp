#include "osi/text/osiunitlabel.h"

OsiUnitLabel::OsiUnitLabel(const char* name, const OsiFraction& power)
: name(name ? name : ""),
  power(power)
{}

void OsiUnitLabel::concatenateWith(string_ext<char>& text) const
{
	text += name;
	string_ext<char> mark;
	if (power.denominator != 1)
		mark.sprintf("^(%d/%d)", power.numerator, power.denominator);
	else if (power.numerator == 2)
		mark = "<C2B2>";
	else if (power.numerator == 3)
		mark = "<C2B3>";
	else if (power.numerator != 1)
		mark.sprintf("^%d", power.numerator);
	text += mark;
}
