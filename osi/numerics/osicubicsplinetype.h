// End conditions of a cubic spline, and the knot sources splines are built from.
#pragma once

enum OsiCubicSplineType
{
	// Second derivative zero at both end knots; the end cubics continue
	// outside the knot range.
	OsiCubicSplineNatural = 0,
	// Zero slope at the first knot; outside the knot range the value is held
	// at the end knot's ordinate.
	OsiCubicSplineFlatEnds = 1
};

// Knot source: fills knot `index`'s abscissa and ordinate. Returns true on
// failure, which abandons whatever is being built.
typedef bool (*OsiSplineCallback)(int index, double& x, double& y, void* user);

// The same with pointers, for sources that may be asked for the abscissa only
// (a null y).
typedef bool (*OsiSplinePointerCallback)(int index, double* x, double* y, void* user);
