// Where the ticks of an axis go and what their labels read. Labelled (major)
// ticks are spaced so that a person reads them easily: 1, 2 or 5 times a
// power of ten on linear scales, decades (with their 2 and 5 between when
// there is room) on logarithmic ones. Unlabelled (minor) ticks subdivide the
// steps.
#pragma once

#include "osi/base/string_ext.h"

#include <vector>

struct VGuiGraphTick
{
	// In the axis's label units (the value itself, or its level in dB).
	double value;
	bool major;
	string_ext<char> label;
};

class VGuiGraphAxisTicks
{
public:
	// The level-th step of the 1-2-5 sequence from the smallest at or above
	// least: level 0 is that step, 1 the next larger one, -1 the next
	// smaller one, and so on.
	static double niceStep(double least, int level);
	// The power of ten, a multiple of 3, that the labels of lo .. hi are
	// divided by so that none reads longer than four figures before or two
	// zeros after the point; 0 for ranges that read well as they are.
	static int engineeringExponent(double lo, double hi);

	// Ticks every step from lo to hi, labelled with the values divided by
	// 10^exponent and as many decimals as the step needs; minor ticks
	// subdivide each step in fives (steps of 1 or 5) or halves (2).
	static VGuiGraphAxisTicks linear(double lo, double hi, double step, int exponent);
	// Ticks at powers of ten from lo to hi (both positive), every stride-th
	// decade labelled, with the 2 and 5 of each decade also labelled when
	// withTwoAndFive; the other whole multiples of each decade are minor.
	// Labels carry engineering suffix letters (20, 500, 1k, 20k).
	static VGuiGraphAxisTicks decades(double lo, double hi, int stride, bool withTwoAndFive);

	int majorCount() const;
	// Drops the minor ticks.
	void majorOnly();

	std::vector<VGuiGraphTick> ticks;
	int exponent = 0;
};
