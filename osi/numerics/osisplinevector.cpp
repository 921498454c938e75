#include "osi/numerics/osisplinevector.h"

#include <algorithm>

OsiSplineVector::OsiSplineVector(int count) : elementCount(count > 0 ? count : 0)
{
	if (elementCount > 0)
	{
		abscissaArray = std::make_unique<double[]>(elementCount);
		ordinateArray = std::make_unique<double[]>(elementCount);
	}
}

OsiSplineVector::OsiSplineVector(const OsiSplineVector& other) : OsiSplineVector(other.elementCount)
{
	std::copy_n(other.abscissaArray.get(), elementCount, abscissaArray.get());
	std::copy_n(other.ordinateArray.get(), elementCount, ordinateArray.get());
}

OsiSplineVector& OsiSplineVector::operator=(const OsiSplineVector& other)
{
	if (this != &other)
	{
		OsiSplineVector copy(other);
		elementCount = copy.elementCount;
		abscissaArray = std::move(copy.abscissaArray);
		ordinateArray = std::move(copy.ordinateArray);
	}
	return *this;
}

bool OsiSplineVector::initCallback(int index, double& x, double& y, void* vector)
{
	const auto* v = static_cast<const OsiSplineVector*>(vector);
	if (!v || !v->abscissaArray || !v->ordinateArray)
		return true;
	x = v->abscissaArray[index];
	y = v->ordinateArray[index];
	return false;
}

bool OsiSplineVector::initCallback2(int index, double* x, double* y, void* vector)
{
	if (!x || !y)
		return true;
	return initCallback(index, *x, *y, vector);
}
