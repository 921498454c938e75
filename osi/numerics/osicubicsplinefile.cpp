// The spline as a class block of a structured file: the knot count and the
// type as kInt, then every knot as three kDouble (y, x, m). Files are
// untrusted: a count is checked against what the block can hold, and knots
// are read a chunk at a time, so that memory grows only with data actually
// present in the file.
#include "osi/numerics/osicubicsplineinterpolator.h"

#include "persist/osistructuredfile.h"

#include <algorithm>
#include <climits>

namespace {

const char kClassName[] = "OsiCubicSplineInterpolator";
constexpr int kClassVersion = 1;
constexpr int kDoublesPerKnot = 3;
constexpr int kKnotsPerChunk = 4096;

static_assert(sizeof(OsiCubicSplineKnot) == kDoublesPerKnot * sizeof(double),
              "a knot is stored as its three doubles");

bool readKnots(OsiStructuredFile& file, long long blockEnd, int count,
               std::vector<OsiCubicSplineKnot>& knots)
{
	// The first knot shows how many bytes a knot takes in this file.
	OsiCubicSplineKnot first{};
	long long start = 0;
	long long afterFirst = 0;
	if (!file.markPosition(start) || !file.read(&first, TypedStream::kDouble, kDoublesPerKnot) ||
	    !file.markPosition(afterFirst))
		return false;
	const long long knotBytes = afterFirst - start;
	if (knotBytes <= 0 || afterFirst > blockEnd || count - 1 > (blockEnd - afterFirst) / knotBytes)
		return false;
	knots.assign(1, first);
	while (static_cast<int>(knots.size()) < count)
	{
		const int done = static_cast<int>(knots.size());
		const int chunk = std::min(kKnotsPerChunk, count - done);
		knots.resize(done + chunk);
		if (!file.read(&knots[done], TypedStream::kDouble, kDoublesPerKnot * chunk))
			return false;
	}
	return true;
}

} // namespace

bool OsiCubicSplineInterpolator::write(OsiStructuredFile& file) const
{
	const int n = count();
	const int type = splineType;
	long long blockEnd = 0;
	if (n <= 0)
		return false;
	const bool written = file.beginClass(kClassName, kClassVersion, blockEnd) &&
	                     file.write(&n, TypedStream::kInt, 1) &&
	                     file.write(&type, TypedStream::kInt, 1) &&
	                     file.write(knotArray.data(), TypedStream::kDouble, kDoublesPerKnot * n) &&
	                     file.endBlock(blockEnd);
	return written && !file.fileError();
}

// A file that cannot be read leaves the spline as it was.
bool OsiCubicSplineInterpolator::read(OsiStructuredFile& file)
{
	long long blockEnd = 0;
	if (!file.beginClass(kClassName, kClassVersion, blockEnd))
		return false;
	int n = 0;
	int type = 0;
	std::vector<OsiCubicSplineKnot> knots;
	// A spline needs an interval; the type must be one this class evaluates.
	const bool valid = file.read(&n, TypedStream::kInt, 1) &&
	                   file.read(&type, TypedStream::kInt, 1) && n >= 2 &&
	                   n <= INT_MAX / kDoublesPerKnot &&
	                   (type == OsiCubicSplineNatural || type == OsiCubicSplineFlatEnds) &&
	                   readKnots(file, blockEnd, n, knots);
	const bool ended = file.endBlock(blockEnd);
	if (!valid || !ended || file.fileError())
		return false;
	knotArray = std::move(knots);
	splineType = static_cast<OsiCubicSplineType>(type);
	return true;
}
