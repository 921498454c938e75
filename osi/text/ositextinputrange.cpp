#include "osi/text/ositextinputrange.h"

#include <algorithm>
#include <cmath>

OsiTextInputRange::OsiTextInputRange(double a, double b, double sum, long count)
: maximum(std::max(a, b)),
  minimum(std::min(a, b)),
  sum(sum),
  count(count)
{}

void OsiTextInputRange::addToRange(double v)
{
	if (v > maximum)
		maximum = v;
	else if (v < minimum)
		minimum = v;
	sum += v;
	++count;
}

double OsiTextInputRange::absoluteMaximum() const
{
	return std::max(std::fabs(maximum), std::fabs(minimum));
}

double OsiTextInputRange::mean() const
{
	return count == 0 ? 0 : sum / count;
}
