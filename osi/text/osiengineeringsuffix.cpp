#include "osi/text/osiengineeringsuffix.h"

namespace {

struct Suffix
{
	char letter;
	double factor;
	double scale; // the inverse of factor, exact as written
};

// One entry per three powers of ten from 1e-15 to 1e12; the middle one has no
// letter.
constexpr Suffix kSuffixes[] = {
    {'f', 1e-15, 1e15}, {'p', 1e-12, 1e12}, {'n', 1e-9, 1e9}, {'u', 1e-6, 1e6}, {'m', 1e-3, 1e3},
    {0, 1, 1},          {'k', 1e3, 1e-3},   {'M', 1e6, 1e-6}, {'G', 1e9, 1e-9}, {'T', 1e12, 1e-12},
};
constexpr int kLowestExponent = -15;
constexpr int kHighestExponent = 14;

} // namespace

bool OsiEngineeringSuffix::factorOf(char letter, double& factor)
{
	for (const Suffix& suffix : kSuffixes)
	{
		if (suffix.letter && suffix.letter == letter)
		{
			factor = suffix.factor;
			return true;
		}
	}
	return false;
}

bool OsiEngineeringSuffix::forExponent(int exponent, char& letter, double& scale)
{
	if (exponent < kLowestExponent || exponent > kHighestExponent)
		return false;
	const Suffix& suffix = kSuffixes[(exponent - kLowestExponent) / 3];
	letter = suffix.letter;
	scale = suffix.scale;
	return true;
}
