// An interpolating cubic spline through caller-supplied knots, evaluated
// through a caller-held context, and saved as a class block of a structured
// file.
#pragma once

#include "osi/numerics/osicubicsplinecontext.h"
#include "osi/numerics/osicubicsplinetype.h"
#include "osi/numerics/osiintervalwalk.h"

#include <limits>
#include <vector>

class OsiSplineVector;
class OsiStructuredFile;

class OsiCubicSplineInterpolator
{
public:
	OsiCubicSplineInterpolator() = default;
	OsiCubicSplineInterpolator(const OsiCubicSplineInterpolator& other) = default;
	OsiCubicSplineInterpolator& operator=(const OsiCubicSplineInterpolator& other) = default;
	explicit OsiCubicSplineInterpolator(OsiSplineVector& vector);
	OsiCubicSplineInterpolator(OsiCubicSplineType type, OsiSplineVector& vector);
	OsiCubicSplineInterpolator(int count, OsiSplineCallback callback, void* user);
	OsiCubicSplineInterpolator(OsiCubicSplineType type, int count, OsiSplineCallback callback,
	                           void* user);
	virtual ~OsiCubicSplineInterpolator() = default;

	// Builds the spline from `count` knots, given in strictly increasing
	// abscissa order, read through `callback`. Needs at least three knots.
	// Returns true when the spline is ready; a failing callback leaves it empty.
	bool initialise(OsiCubicSplineType type, int count, OsiSplineCallback callback, void* user);

	// Positions `context` on the interval that holds x: x_i < x <= x_(i+1),
	// the first interval for x at or below the first knot and the last one
	// above the last knot. The walk starts where the context stands.
	void findContext(double x, OsiCubicSplineContext& context) const;
	// The spline's value at x on the context's interval (findContext first).
	double evaluateContext(double x, const OsiCubicSplineContext& context) const;

	bool write(OsiStructuredFile& file) const;
	bool read(OsiStructuredFile& file);

	int count() const { return static_cast<int>(knotArray.size()); }
	OsiCubicSplineType type() const { return splineType; }
	const OsiCubicSplineKnot* knots() const { return knotArray.data(); }

private:
	void solveNatural();
	void solveFlatEnds();

	std::vector<OsiCubicSplineKnot> knotArray;
	OsiCubicSplineType splineType = OsiCubicSplineNatural;
};

// Evaluation is inline: callers sweep it over long runs of abscissae.
inline void OsiCubicSplineInterpolator::findContext(double x, OsiCubicSplineContext& context) const
{
	const int n = count();
	if (n == 0)
		return;
	const int i = osiWalkInterval(knotArray.data(), n, context.knot ? context.index : 0, x);
	context.index = i;
	context.knot = &knotArray[i];
}

inline double
OsiCubicSplineInterpolator::evaluateContext(double x, const OsiCubicSplineContext& context) const
{
	const int i = context.index;
	if (i < 0 || i > count() - 2)
		return std::numeric_limits<double>::quiet_NaN();
	const OsiCubicSplineKnot& left = knotArray[i];
	const OsiCubicSplineKnot& right = knotArray[i + 1];
	if (splineType == OsiCubicSplineFlatEnds)
	{
		if (i == count() - 2 && x >= right.x)
			return right.y;
		if (i == 0 && x <= left.x)
			return left.y;
	}
	const double h = right.x - left.x;
	const double a = x - left.x;
	const double b = right.x - x;
	return ((6 * left.y - left.m * h * h) * b + (6 * right.y - right.m * h * h) * a +
	        right.m * a * a * a + left.m * b * b * b) /
	       (6 * h);
}
