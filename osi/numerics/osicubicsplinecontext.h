// A cubic spline's knot record and the caller-held cursor that remembers
// where the last evaluation took place.
#pragma once

// One knot of a cubic spline. The member order is also the order of the
// three doubles in a saved spline.
struct OsiCubicSplineKnot
{
	double y; // ordinate
	double x; // abscissa
	double m; // second derivative of the spline at the knot
};

// Remembers the interval of the last evaluation so that a sweep over
// increasing or decreasing abscissae walks at most a step per call. A new
// context must start with a null knot pointer; one context serves one spline.
struct OsiCubicSplineContext
{
	const OsiCubicSplineKnot* knot = nullptr; // left knot of the interval, null when not positioned
	int index = 0;                            // index of that knot
};
