// What a text input read: the largest and smallest value, their sum and
// count.
#pragma once

class OsiTextInputRange
{
public:
	OsiTextInputRange() = default;
	// The larger of a and b becomes the maximum, the smaller the minimum.
	OsiTextInputRange(double a, double b, double sum, long count);

	// Widens the range to v and adds v to the sum and count. A default range
	// starts at 0 and so always includes 0.
	void addToRange(double v);
	double absoluteMaximum() const;
	// 0 for an empty range.
	double mean() const;

	double maximum = 0;
	double minimum = 0;
	double sum = 0;
	long count = 0;
};
