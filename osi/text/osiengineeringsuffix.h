// The engineering suffix letters (f p n u m k M G T), one table for reading
// and printing numbers; case matters (m is milli, M is mega).
#pragma once

class OsiEngineeringSuffix
{
public:
	// The factor of a suffix letter; false for any other character.
	static bool factorOf(char letter, double& factor);
	// The letter and the scale that bring a value whose power of ten is
	// exponent into [1, 1000): exponent -15..-13 gives f and 1e15, ... 12..14
	// gives T and 1e-12; 0..2 gives no letter (NUL) and 1. False outside
	// -15..14.
	static bool forExponent(int exponent, char& letter, double& scale);
};
