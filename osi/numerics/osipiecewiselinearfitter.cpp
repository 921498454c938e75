#include "osi/numerics/osipiecewiselinearfitter.h"

#include "osi/numerics/osiintervalwalk.h"
#include "osi/numerics/osisplinevector.h"

#include <limits>

namespace {

struct Row
{
	double diag;
	double super;
	double rhs;
};

} // namespace

OsiPiecewiseLinearFitter::OsiPiecewiseLinearFitter(int knotCount, int pointCount,
                                                   OsiSplinePointerCallback callback, void* user)
{
	initialise(knotCount, pointCount, callback, user);
}

OsiPiecewiseLinearFitter::OsiPiecewiseLinearFitter(int knotCount, OsiSplineVector& vector)
{
	initialise(knotCount, vector);
}

bool OsiPiecewiseLinearFitter::initialise(int knotCount, OsiSplineVector& vector)
{
	return initialise(knotCount, vector.count(), OsiSplineVector::initCallback2, &vector);
}

bool OsiPiecewiseLinearFitter::initialise(int knotCount, int pointCount,
                                          OsiSplinePointerCallback callback, void* user)
{
	if (knotCount < 2 || pointCount < knotCount || !callback)
		return false;
	knotArray.assign(knotCount, OsiPiecewiseLinearPoint{0, 0});
	std::vector<OsiPiecewiseLinearPoint> points(pointCount, OsiPiecewiseLinearPoint{0, 0});
	bool failed = false;
	for (int i = 0; i < knotCount && !failed; ++i)
		failed = callback(i, &knotArray[i].x, nullptr, user);
	for (int i = 0; i < pointCount && !failed; ++i)
		failed = callback(i, &points[i].x, &points[i].y, user);
	if (failed)
	{
		knotArray = decltype(knotArray)();
		return false;
	}
	solve(points.data(), pointCount);
	return true;
}

// The tridiagonal normal equations for the knot ordinates. The elimination
// reduces each diagonal by the previous row's super-diagonal, as fitted
// curves in use have always been computed.
void OsiPiecewiseLinearFitter::solve(const OsiPiecewiseLinearPoint* points, int pointCount)
{
	const int n = count();
	const int last = n - 1;
	std::vector<Row> rows(n);
	rows[0] = {find_Ain(0, points, pointCount), find_Cin(0, points, pointCount),
	           find_Din(0, points, pointCount)};
	for (int j = 1; j < last; ++j)
		rows[j] = {find_Ain(j, points, pointCount) + find_Bjn(j, points, pointCount),
		           find_Cin(j, points, pointCount),
		           find_Din(j, points, pointCount) + find_Ejn(j, points, pointCount)};
	rows[last] = {find_Bjn(last, points, pointCount), find_Cin(last - 1, points, pointCount),
	              find_Ejn(last, points, pointCount)};

	for (int k = 1; k < n; ++k)
	{
		const double factor = -rows[k - 1].super / rows[k - 1].diag;
		rows[k].diag += rows[k - 1].diag * factor;
		rows[k].rhs += factor * rows[k - 1].rhs;
	}
	knotArray[last].y = rows[last].rhs / rows[last].diag;
	for (int k = last - 1; k >= 0; --k)
		knotArray[k].y = (rows[k].rhs - rows[k].super * knotArray[k + 1].y) / rows[k].diag;
}

bool OsiPiecewiseLinearFitter::inInterval(int j, const OsiPiecewiseLinearPoint& p) const
{
	return knotArray[j].x <= p.x && p.x < knotArray[j + 1].x;
}

double OsiPiecewiseLinearFitter::find_BetaX(int j, const OsiPiecewiseLinearPoint& p) const
{
	return (p.x - knotArray[j].x) / (knotArray[j + 1].x - knotArray[j].x);
}

template <typename Term>
double OsiPiecewiseLinearFitter::sumOver(int j, const OsiPiecewiseLinearPoint* points,
                                         int pointCount, Term term) const
{
	double sum = 0.0;
	if (j < 0 || j > count() - 2)
		return sum;
	for (int p = 0; p < pointCount; ++p)
	{
		if (inInterval(j, points[p]))
			sum += term(find_BetaX(j, points[p]), points[p].y);
	}
	return sum;
}

double OsiPiecewiseLinearFitter::find_Ain(int j, const OsiPiecewiseLinearPoint* points,
                                          int pointCount) const
{
	return sumOver(j, points, pointCount, [](double b, double) { return (1 - b) * (1 - b); });
}

double OsiPiecewiseLinearFitter::find_Cin(int j, const OsiPiecewiseLinearPoint* points,
                                          int pointCount) const
{
	return sumOver(j, points, pointCount, [](double b, double) { return (1 - b) * b; });
}

double OsiPiecewiseLinearFitter::find_Din(int j, const OsiPiecewiseLinearPoint* points,
                                          int pointCount) const
{
	return sumOver(j, points, pointCount, [](double b, double y) { return (1 - b) * y; });
}

double OsiPiecewiseLinearFitter::find_Bjn(int j, const OsiPiecewiseLinearPoint* points,
                                          int pointCount) const
{
	return sumOver(j - 1, points, pointCount, [](double b, double) { return b * b; });
}

double OsiPiecewiseLinearFitter::find_Ejn(int j, const OsiPiecewiseLinearPoint* points,
                                          int pointCount) const
{
	return sumOver(j - 1, points, pointCount, [](double b, double y) { return b * y; });
}

void OsiPiecewiseLinearFitter::findContext(double x, OsiPiecewiseLinearContext& context) const
{
	const int n = count();
	if (n == 0)
		return;
	const int i = osiWalkInterval(knotArray.data(), n, context.knot ? context.index : 0, x);
	context.index = i;
	context.knot = &knotArray[i];
}

double OsiPiecewiseLinearFitter::evaluateContext(double x,
                                                 const OsiPiecewiseLinearContext& context) const
{
	const int j = context.index;
	if (j < 0 || j > count() - 2)
		return std::numeric_limits<double>::quiet_NaN();
	const OsiPiecewiseLinearPoint& left = knotArray[j];
	const OsiPiecewiseLinearPoint& right = knotArray[j + 1];
	return left.y + (right.y - left.y) * (x - left.x) / (right.x - left.x);
}
