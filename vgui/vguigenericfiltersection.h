// A filter section that the filter-adjustment cursors draw on a spectrum and
// hand to the graph control: its magnitude response and a short text.
// Reference counted.
#pragma once

#include "osi/base/referencecount.h"
#include "osi/base/string_ext.h"

class VGuiGenericFilterSection : public OsiReferenceCount
{
public:
	// The gain at frequency f; with invert, of the section that undoes it.
	virtual double magnitude(double f, bool invert) const = 0;
	// Appends ",name=value" parts.
	virtual void description(string_ext<char>& text) const = 0;
};
