#include "osi/numerics/osicubicsplineinterpolator.h"

#include "osi/numerics/osisplinevector.h"

namespace {

// One row of the tridiagonal system for the knots' second derivatives.
struct SplineRow
{
	double sub;
	double diag;
	double super;
	double rhs;
};

double interval(const OsiCubicSplineKnot* k, int i)
{
	return k[i + 1].x - k[i].x;
}

double slope(const OsiCubicSplineKnot* k, int i)
{
	return (k[i + 1].y - k[i].y) / interval(k, i);
}

// Continuity of the second derivative at interior knot i.
SplineRow interiorRow(const OsiCubicSplineKnot* k, int i)
{
	const double hBefore = interval(k, i - 1);
	const double hAfter = interval(k, i);
	return {hBefore, 2 * (hBefore + hAfter), hAfter, 6 * (slope(k, i) - slope(k, i - 1))};
}

// Elimination without pivoting, then back substitution into the second
// derivatives of `unknowns[0 .. rows.size()-1]`.
void solve(std::vector<SplineRow>& rows, OsiCubicSplineKnot* unknowns)
{
	const int n = static_cast<int>(rows.size());
	for (int r = 1; r < n; ++r)
	{
		const double factor = -rows[r].sub / rows[r - 1].diag;
		rows[r].diag += rows[r - 1].super * factor;
		rows[r].rhs += factor * rows[r - 1].rhs;
	}
	unknowns[n - 1].m = rows[n - 1].rhs / rows[n - 1].diag;
	for (int r = n - 2; r >= 0; --r)
		unknowns[r].m = (rows[r].rhs - rows[r].super * unknowns[r + 1].m) / rows[r].diag;
}

} // namespace

OsiCubicSplineInterpolator::OsiCubicSplineInterpolator(OsiSplineVector& vector)
: OsiCubicSplineInterpolator(OsiCubicSplineNatural, vector)
{}

OsiCubicSplineInterpolator::OsiCubicSplineInterpolator(OsiCubicSplineType type,
                                                       OsiSplineVector& vector)
: OsiCubicSplineInterpolator(type, vector.count(), OsiSplineVector::initCallback, &vector)
{}

OsiCubicSplineInterpolator::OsiCubicSplineInterpolator(int count, OsiSplineCallback callback,
                                                       void* user)
: OsiCubicSplineInterpolator(OsiCubicSplineNatural, count, callback, user)
{}

OsiCubicSplineInterpolator::OsiCubicSplineInterpolator(OsiCubicSplineType type, int count,
                                                       OsiSplineCallback callback, void* user)
{
	initialise(type, count, callback, user);
}

bool OsiCubicSplineInterpolator::initialise(OsiCubicSplineType type, int count,
                                            OsiSplineCallback callback, void* user)
{
	// The end condition is taken even when there are too few knots to build on.
	splineType = type;
	if (count < 3 || !callback)
		return false;
	knotArray.assign(count, OsiCubicSplineKnot{0, 0, 0});
	for (int i = 0; i < count; ++i)
	{
		if (callback(i, knotArray[i].x, knotArray[i].y, user))
		{
			knotArray = decltype(knotArray)();
			return false;
		}
	}
	if (type == OsiCubicSplineNatural)
		solveNatural();
	else if (type == OsiCubicSplineFlatEnds)
		solveFlatEnds();
	return true;
}

// Second derivative zero at both ends: n-2 unknowns m_1 .. m_(n-2).
void OsiCubicSplineInterpolator::solveNatural()
{
	const int n = count();
	std::vector<SplineRow> rows;
	rows.reserve(n - 2);
	for (int k = 1; k <= n - 2; ++k)
		rows.push_back(interiorRow(knotArray.data(), k));
	solve(rows, &knotArray[1]);
}

// Zero slope at the first knot; the last row takes its diagonal and its
// right-hand side from the second-last interval, as saved splines and fitted
// results have always had it.
void OsiCubicSplineInterpolator::solveFlatEnds()
{
	const OsiCubicSplineKnot* k = knotArray.data();
	const int n = count();
	std::vector<SplineRow> rows;
	rows.reserve(n);
	const double h0 = interval(k, 0);
	rows.push_back({0, h0 / 3, h0 / 6, slope(k, 0)});
	for (int i = 1; i <= n - 2; ++i)
		rows.push_back(interiorRow(k, i));
	rows.push_back({0, interval(k, n - 3) / 3, 0, slope(k, n - 3)});
	rows[1].sub = 6 * rows[0].super;
	rows[n - 1].sub = rows[n - 2].super / 6;
	solve(rows, knotArray.data());
}
