// A piecewise-linear curve through caller-chosen knot abscissae whose
// ordinates are found in closed form from many data points.
#pragma once

#include "osi/numerics/osicubicsplinetype.h"

#include <vector>

class OsiSplineVector;

// A knot or a data point: ordinate, then abscissa.
struct OsiPiecewiseLinearPoint
{
	double y;
	double x;
};

// Remembers the segment of the last evaluation; a new context starts with a
// null knot pointer.
struct OsiPiecewiseLinearContext
{
	const OsiPiecewiseLinearPoint* knot = nullptr;
	int index = 0;
};

class OsiPiecewiseLinearFitter
{
public:
	OsiPiecewiseLinearFitter() = default;
	OsiPiecewiseLinearFitter(const OsiPiecewiseLinearFitter& other) = default;
	OsiPiecewiseLinearFitter& operator=(const OsiPiecewiseLinearFitter& other) = default;
	OsiPiecewiseLinearFitter(int knotCount, int pointCount, OsiSplinePointerCallback callback,
	                         void* user);
	OsiPiecewiseLinearFitter(int knotCount, OsiSplineVector& vector);
	virtual ~OsiPiecewiseLinearFitter() = default;

	// The callback gives knot i's abscissa (with a null y) for i < knotCount,
	// then every data point. Knots must increase strictly; points at or beyond
	// the last knot, or before the first, are ignored.
	bool initialise(int knotCount, int pointCount, OsiSplinePointerCallback callback, void* user);
	// Uses OsiSplineVector::initCallback2, which refuses the knots' null y, so
	// this always fails; sources must accept a null y.
	bool initialise(int knotCount, OsiSplineVector& vector);

	void findContext(double x, OsiPiecewiseLinearContext& context) const;
	double evaluateContext(double x, const OsiPiecewiseLinearContext& context) const;

	// Sums of the normal equations over the data points, for knot interval j:
	// beta is a point's relative position in interval j.
	double find_BetaX(int j, const OsiPiecewiseLinearPoint& p) const;
	double find_Ain(int j, const OsiPiecewiseLinearPoint* points, int pointCount) const;
	double find_Cin(int j, const OsiPiecewiseLinearPoint* points, int pointCount) const;
	double find_Din(int j, const OsiPiecewiseLinearPoint* points, int pointCount) const;
	// The same over the points of interval j-1.
	double find_Bjn(int j, const OsiPiecewiseLinearPoint* points, int pointCount) const;
	double find_Ejn(int j, const OsiPiecewiseLinearPoint* points, int pointCount) const;

	int count() const { return static_cast<int>(knotArray.size()); }
	const OsiPiecewiseLinearPoint* knots() const { return knotArray.data(); }

private:
	bool inInterval(int j, const OsiPiecewiseLinearPoint& p) const;
	template <typename Term>
	double sumOver(int j, const OsiPiecewiseLinearPoint* points, int pointCount, Term term) const;
	void solve(const OsiPiecewiseLinearPoint* points, int pointCount);

	std::vector<OsiPiecewiseLinearPoint> knotArray;
};
