// The interval search shared by the spline and the piecewise-linear curve:
// a linear walk from the interval of the previous call, because callers
// sweep abscissae in order.
#pragma once

// Returns the interval i (0 .. count-2) with knots[i].x < x <= knots[i+1].x,
// 0 for x at or below the first knot and count-2 above the last one,
// walking from `start`. Needs count >= 2; any out-of-range start means 0.
template <typename Knot> int osiWalkInterval(const Knot* knots, int count, int start, double x)
{
	int i = start >= 0 && start <= count - 2 ? start : 0;
	if (x > knots[i].x)
	{
		while (i < count - 2 && knots[i + 1].x < x)
			++i;
	}
	else
	{
		while (i > 0 && x <= knots[i].x)
			--i;
	}
	return i;
}
