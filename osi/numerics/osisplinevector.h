// Paired abscissa and ordinate arrays that the caller fills directly; the
// easiest source of knots for a spline or of points for a fitter.
#pragma once

#include <memory>

class OsiSplineVector
{
public:
	// Both arrays exist only for a positive count; otherwise both are null.
	explicit OsiSplineVector(int count);
	OsiSplineVector(const OsiSplineVector& other);
	OsiSplineVector& operator=(const OsiSplineVector& other);
	virtual ~OsiSplineVector() = default;

	int count() const { return elementCount; }
	double* abscissa() { return abscissaArray.get(); }
	double* ordinate() { return ordinateArray.get(); }
	const double* abscissa() const { return abscissaArray.get(); }
	const double* ordinate() const { return ordinateArray.get(); }

	// Knot source for a spline: `vector` is the OsiSplineVector. Fails (true)
	// when it or either array is null. The index is not checked.
	static bool initCallback(int index, double& x, double& y, void* vector);
	// The pointer-style source; also fails when either output pointer is null.
	static bool initCallback2(int index, double* x, double* y, void* vector);

private:
	int elementCount;
	std::unique_ptr<double[]> abscissaArray;
	std::unique_ptr<double[]> ordinateArray;
};
