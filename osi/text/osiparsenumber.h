// Picks the first integer with an optional exponent out of free text (a
// label, a file name) and hands back its mantissa and exponent as text: in
// "ch2 gain -12e3 dB" it finds -12 and 3.
#pragma once

#include "osi/base/string_ext.h"

class OsiParseNumber
{
public:
	// Finds the number in text; numberStart points at it (its sign included)
	// and end after it. False when text holds no number.
	bool parse(const char* text, const char*& numberStart, const char*& end);
	// Reads the number at start: one character (a sign with the one after
	// it), the decimal digits that follow (no decimal point), then an
	// optional exponent ('e' or 'E', a sign, digits). False at the end of the
	// text.
	bool parseNumber(const char* start, const char*& end);
	// The first decimal digit not directly after a letter, moved back onto a
	// sign before it; null when there is none.
	const char* findAlphaNumeric(const char* text) const;

	string_ext<char> mantissa;
	string_ext<char> exponent;
};
