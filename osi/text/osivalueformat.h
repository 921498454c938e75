// Turns a number into display text with its unit, for readouts of graph
// axes and cursors.
#pragma once

#include "osi/base/string_ext.h"
#include "osi/text/osicompositeunitlabel.h"

class OsiValueFormat
{
public:
	explicit OsiValueFormat(const OsiCompositeUnitLabel& units) : units(units) {}
	OsiValueFormat(const OsiValueFormat& other) = default;
	OsiValueFormat& operator=(const OsiValueFormat& other) = default;
	virtual ~OsiValueFormat() = default;

	// The text of value, valid until the next call.
	virtual const string_ext<char>& format(double value, int precision) const = 0;
	// Follows a scaling of the values by factor, whose units multiply the
	// format's units. Only formats relative to a reference use the factor.
	virtual void multiplyBy(double factor, const OsiCompositeUnitLabel& units);

	OsiCompositeUnitLabel units;

protected:
	string_ext<char> unitText() const;

	mutable string_ext<char> text;
};
