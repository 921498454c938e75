#include "osi/numerics/osifittedcubicspline.h"

#include <cmath>

OsiFittedCubicSpline::OsiFittedCubicSpline(OsiCubicSplineType type, int dataCount, int knotCount,
                                           OsiSplineCallback dataCallback,
                                           OsiSplineCallback knotCallback, void* dataUser,
                                           void* knotUser, int penaltyFirstKnot,
                                           int penaltyKnotCount, double penaltyWeight,
                                           bool penaltyOnSlope)
{
	initialise(type, dataCount, knotCount, dataCallback, knotCallback, dataUser, knotUser,
	           penaltyFirstKnot, penaltyKnotCount, penaltyWeight, penaltyOnSlope);
}

OsiFittedCubicSpline::OsiFittedCubicSpline(int dataCount, int knotCount,
                                           OsiSplineCallback dataCallback,
                                           OsiSplineCallback knotCallback, void* dataUser,
                                           void* knotUser, int penaltyFirstKnot,
                                           int penaltyKnotCount, double penaltyWeight,
                                           bool penaltyOnSlope)
: OsiFittedCubicSpline(OsiCubicSplineNatural, dataCount, knotCount, dataCallback, knotCallback,
                       dataUser, knotUser, penaltyFirstKnot, penaltyKnotCount, penaltyWeight,
                       penaltyOnSlope)
{}

bool OsiFittedCubicSpline::initialise(int dataCount, int knotCount, OsiSplineCallback dataCallback,
                                      OsiSplineCallback knotCallback, void* dataUser,
                                      void* knotUser, int penaltyFirstKnot, int penaltyKnotCount,
                                      double penaltyWeight, bool penaltyOnSlope)
{
	return initialise(OsiCubicSplineNatural, dataCount, knotCount, dataCallback, knotCallback,
	                  dataUser, knotUser, penaltyFirstKnot, penaltyKnotCount, penaltyWeight,
	                  penaltyOnSlope);
}

bool OsiFittedCubicSpline::initialise(OsiCubicSplineType splineType, int dataCount, int knotCount,
                                      OsiSplineCallback dataCallback,
                                      OsiSplineCallback knotCallback, void* dataUser,
                                      void* knotUser, int firstKnot, int knotsPenalised,
                                      double weight, bool onSlope)
{
	free();
	status = OsiLmImproperInput;
	type = splineType;
	penaltyFirstKnot = firstKnot;
	penaltyKnotCount = knotsPenalised;
	penaltyWeight = weight;
	penaltyOnSlope = onSlope;

	if (dataCount < 1 ||
	    !readPoints(dataCount, dataCallback, dataUser, dataAbscissae, dataOrdinates))
		return false;
	if (knotCount < 1)
		return true;
	// A knot that cannot be read leaves nothing to fit.
	if (!readPoints(knotCount, knotCallback, knotUser, knotAbscissae, knotOrdinates))
	{
		free();
		return false;
	}
	if (!penaltyStretchValid())
		return false;

	seedFromData();
	status = osiLmMinimize(dataCount, knotCount, knotOrdinates.data(), lm_evaluate, this);
	// Running out of evaluations or a stop from the residual function still
	// leaves the best ordinates found so far.
	if (status == OsiLmImproperInput)
		return false;
	return initSpline(knotOrdinates.data());
}

// Reads `count` points; on a failure the points read so far are kept.
bool OsiFittedCubicSpline::readPoints(int count, OsiSplineCallback callback, void* user,
                                      std::vector<double>& x, std::vector<double>& y)
{
	x.assign(count, 0.0);
	y.assign(count, 0.0);
	if (!callback)
		return false;
	for (int i = 0; i < count; ++i)
	{
		if (callback(i, x[i], y[i], user))
			return false;
	}
	return true;
}

// The change-of-slope penalty needs both neighbours of a data point, so the
// stretch must lie within the knots; an empty stretch is always valid.
bool OsiFittedCubicSpline::penaltyStretchValid() const
{
	if (penaltyKnotCount <= 0)
		return true;
	return penaltyFirstKnot >= 0 && penaltyKnotCount < knotCount() - penaltyFirstKnot;
}

// Starting ordinates: the spline through the data themselves, at the knot
// abscissae. When no such spline can be built the knot source's ordinates stay.
void OsiFittedCubicSpline::seedFromData()
{
	ArrayPair data{dataAbscissae.data(), dataOrdinates.data()};
	OsiCubicSplineInterpolator seed;
	if (!seed.initialise(type, dataCount(), initSplineCallback, &data))
		return;
	OsiCubicSplineContext context;
	for (int k = 0; k < knotCount(); ++k)
	{
		seed.findContext(knotAbscissae[k], context);
		knotOrdinates[k] = seed.evaluateContext(knotAbscissae[k], context);
	}
}

double OsiFittedCubicSpline::value(double x, OsiCubicSplineContext& context) const
{
	fitted.findContext(x, context);
	return fitted.evaluateContext(x, context);
}

void OsiFittedCubicSpline::free()
{
	// Assigning fresh vectors releases the storage; clear() would keep it.
	knotAbscissae = std::vector<double>();
	knotOrdinates = std::vector<double>();
	dataAbscissae = std::vector<double>();
	dataOrdinates = std::vector<double>();
	type = OsiCubicSplineNatural;
}

bool OsiFittedCubicSpline::initSpline(const double* ordinates)
{
	ArrayPair knots{knotAbscissae.data(), ordinates};
	return fitted.initialise(type, knotCount(), initSplineCallback, &knots);
}

bool OsiFittedCubicSpline::initSplineCallback(int index, double& x, double& y, void* pair)
{
	const auto* arrays = static_cast<const ArrayPair*>(pair);
	if (!arrays)
		return true;
	x = arrays->abscissa[index];
	y = arrays->ordinate[index];
	return false;
}

// The penalty of data point i, whose spline value is valueAtI: the slope from
// its left neighbour, or that slope minus the slope to its right neighbour.
// At the ends of the data the one neighbour there serves for both slopes.
double OsiFittedCubicSpline::penalty(int i, double valueAtI, OsiCubicSplineContext& context) const
{
	const int last = dataCount() - 1;
	if (last < 1)
		return 0.0;
	const double* x = dataAbscissae.data();
	auto slopeTo = [&](int j) {
		fitted.findContext(x[j], context);
		return (valueAtI - fitted.evaluateContext(x[j], context)) / (x[i] - x[j]);
	};
	double back = i > 0 ? slopeTo(i - 1) : 0.0;
	double ahead = i < last ? slopeTo(i + 1) : back;
	if (i == 0)
		back = ahead;
	return penaltyWeight * (penaltyOnSlope ? back : back - ahead);
}

void OsiFittedCubicSpline::lm_evaluate(const double* parameters, int dataCount, double* residuals,
                                       void* fitter, int* info)
{
	auto* self = static_cast<OsiFittedCubicSpline*>(fitter);
	if (!self->initSpline(parameters))
	{
		*info = -1;
		return;
	}
	double lo = 0.0;
	double hi = 0.0;
	if (self->penaltyKnotCount > 0)
	{
		lo = self->knotAbscissae[self->penaltyFirstKnot];
		hi = self->knotAbscissae[self->penaltyFirstKnot + self->penaltyKnotCount];
	}
	const double* x = self->dataAbscissae.data();
	const double* y = self->dataOrdinates.data();
	OsiCubicSplineContext context;
	for (int i = 0; i < dataCount && i < self->dataCount(); ++i)
	{
		const double s = self->value(x[i], context);
		const double p = lo <= x[i] && x[i] <= hi ? self->penalty(i, s, context) : 0.0;
		residuals[i] = std::fabs(p) + std::fabs(y[i] - s);
	}
}
