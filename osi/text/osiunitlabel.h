// A unit of measure as a label: a name (m, s, Hz) raised to a rational
// power.
#pragma once

#include "osi/base/string_ext.h"
#include "osi/numerics/osifraction.h"

class OsiUnitLabel
{
public:
	// A null name becomes the empty name.
	explicit OsiUnitLabel(const char* name = nullptr, const OsiFraction& power = OsiFraction(1));
	virtual ~OsiUnitLabel() = default;
	OsiUnitLabel(const OsiUnitLabel&) = default;
	OsiUnitLabel& operator=(const OsiUnitLabel&) = default;

	// Appends the name and its power: nothing for 1, the squared and cubed
	// marks for 2 and 3, "^n" for other whole powers and "^(n/d)" otherwise
	// (an unreduced 4/4 prints as ^(4/4)).
	void concatenateWith(string_ext<char>& text) const;

	string_ext<char> name;
	OsiFraction power;
};
