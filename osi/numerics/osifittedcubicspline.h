// A cubic spline with caller-chosen knot abscissae whose ordinates are fitted
// to many data points by least squares, optionally penalising slope or change
// of slope over a stretch of knots.
#pragma once

#include "osi/numerics/osicubicsplineinterpolator.h"
#include "osi/numerics/osilevenbergmarquardt.h"

#include <vector>

class OsiFittedCubicSpline
{
public:
	// Knot source of initSpline: knot i is (abscissa[i], ordinate[i]).
	struct ArrayPair
	{
		const double* abscissa;
		const double* ordinate;
	};

	OsiFittedCubicSpline() = default;
	OsiFittedCubicSpline(const OsiFittedCubicSpline& other) = default;
	OsiFittedCubicSpline& operator=(const OsiFittedCubicSpline& other) = default;
	OsiFittedCubicSpline(OsiCubicSplineType type, int dataCount, int knotCount,
	                     OsiSplineCallback dataCallback, OsiSplineCallback knotCallback,
	                     void* dataUser, void* knotUser, int penaltyFirstKnot, int penaltyKnotCount,
	                     double penaltyWeight, bool penaltyOnSlope);
	OsiFittedCubicSpline(int dataCount, int knotCount, OsiSplineCallback dataCallback,
	                     OsiSplineCallback knotCallback, void* dataUser, void* knotUser,
	                     int penaltyFirstKnot, int penaltyKnotCount, double penaltyWeight,
	                     bool penaltyOnSlope);
	virtual ~OsiFittedCubicSpline() = default;

	// Reads the data points and the knots (whose ordinates only seed the fit)
	// and fits the knot ordinates. The penalty applies to the data points
	// between knots penaltyFirstKnot and penaltyFirstKnot + penaltyKnotCount.
	// With no knots the data are kept and nothing is fitted.
	bool initialise(OsiCubicSplineType type, int dataCount, int knotCount,
	                OsiSplineCallback dataCallback, OsiSplineCallback knotCallback, void* dataUser,
	                void* knotUser, int penaltyFirstKnot, int penaltyKnotCount,
	                double penaltyWeight, bool penaltyOnSlope);
	bool initialise(int dataCount, int knotCount, OsiSplineCallback dataCallback,
	                OsiSplineCallback knotCallback, void* dataUser, void* knotUser,
	                int penaltyFirstKnot, int penaltyKnotCount, double penaltyWeight,
	                bool penaltyOnSlope);

	double value(double x, OsiCubicSplineContext& context) const;
	void free();
	// Rebuilds the spline through the knot abscissae and these ordinates.
	bool initSpline(const double* ordinates);

	// Residual of each data point for trial knot ordinates; `fitter` is the
	// OsiFittedCubicSpline. Sets *info to -1 when no spline can be built.
	static void lm_evaluate(const double* parameters, int dataCount, double* residuals,
	                        void* fitter, int* info);
	// Knot source over an ArrayPair; fails only for a null pair.
	static bool initSplineCallback(int index, double& x, double& y, void* pair);

	int knotCount() const { return static_cast<int>(knotAbscissae.size()); }
	int dataCount() const { return static_cast<int>(dataAbscissae.size()); }
	const double* knotAbscissa() const { return knotAbscissae.data(); }
	const double* knotOrdinate() const { return knotOrdinates.data(); }
	const OsiCubicSplineInterpolator& spline() const { return fitted; }
	// How the last minimisation ended (OsiLmImproperInput when none ran).
	OsiLmStatus fitStatus() const { return status; }

private:
	bool readPoints(int count, OsiSplineCallback callback, void* user, std::vector<double>& x,
	                std::vector<double>& y);
	bool penaltyStretchValid() const;
	void seedFromData();
	double penalty(int i, double valueAtI, OsiCubicSplineContext& context) const;

	std::vector<double> knotAbscissae;
	std::vector<double> knotOrdinates;
	std::vector<double> dataAbscissae;
	std::vector<double> dataOrdinates;
	OsiCubicSplineInterpolator fitted;
	OsiCubicSplineType type = OsiCubicSplineNatural;
	int penaltyFirstKnot = 0;
	int penaltyKnotCount = 0;
	double penaltyWeight = 1.0;
	bool penaltyOnSlope = false;
	OsiLmStatus status = OsiLmImproperInput;
};
