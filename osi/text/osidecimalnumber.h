// Converts the text of one number as sscanf's "%lg" does, quickly for the
// plain decimal numbers that numeric text files are made of.
#pragma once

class OsiDecimalNumber
{
public:
	// The number at the start of text (after blanks), as sscanf "%lg" reads
	// it; false, with value untouched, when there is none. Plain decimal
	// numbers go through convertExactly, everything else (hexadecimal,
	// infinities, NaN, long or extreme ones, a number with text after it) to
	// sscanf itself.
	static bool scan(const char* text, double& value);

	// The whole text (blanks around it allowed) as a plain decimal number -
	// sign, digits, a point and digits, an exponent - whose digits, taken as
	// one integer, are at most 2^53 and whose power of ten is at most 22 away
	// from 0. Both are then exact doubles, so one multiply or divide gives
	// the correctly rounded result: the very double strtod gives. False, with
	// value untouched, for any other text.
	static bool convertExactly(const char* text, double& value);
};
