// Prints a number with the engineering suffix letter that brings its
// mantissa into [1, 1000): 1234.5 at precision 3 prints as 1.23k, or as
// "1.23 k" with a blank before the letter. Axis labels and value formats
// print through it.
#pragma once

#include "osi/base/string_ext.h"

class OsiNumberToString
{
public:
	explicit OsiNumberToString(bool spaceBeforeSuffix = false)
	: spaceBeforeSuffix(spaceBeforeSuffix)
	{}

	// Scaled by the value's own power of ten; zero, NaN and values outside
	// 1e-15 .. 1e15 print unscaled without a letter. Without a letter the
	// spaced form keeps its trailing blank ("12.5 "), so that a unit appended
	// after it lines up with those after a letter.
	const OsiNumberToString& format(double value, int precision) const;
	// The same with the letter chosen by a given power of ten, so that a
	// whole axis or column shares one letter.
	const OsiNumberToString& engineeringFormat(double value, int exponent, int precision) const;

	const string_ext<char>& text() const { return result; }
	const char* c_str() const { return result.c_str(); }

private:
	mutable string_ext<char> result;

public:
	bool spaceBeforeSuffix;
};
