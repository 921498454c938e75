// Splines saved in structured files and read back; malformed blocks refused.
#include "osi/numerics/osicubicsplineinterpolator.h"
#include "osi/numerics/osisplinevector.h"
#include "persist/osistructuredfile.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>

namespace {

const char kTopClass[] = "SplineTest";

class SplineFile : public ::testing::Test
{
protected:
	// A complete file of class kTopClass whose body `fill` writes.
	void writeFile(const std::function<void(OsiStructuredFile&)>& fill)
	{
		OsiStructuredFile out(kTopClass, 1);
		ASSERT_TRUE(out.open(path.c_str(), true));
		fill(out);
		ASSERT_TRUE(out.close(true));
	}

	velora_test::TempFolder folder;
	std::string path = folder.path("splines.bin");
};

OsiCubicSplineInterpolator splineOf(OsiCubicSplineType type, int n, double phase)
{
	OsiSplineVector v(n);
	for (int i = 0; i < n; ++i)
	{
		v.abscissa()[i] = -90.0 + 180.0 * i / (n - 1);
		v.ordinate()[i] = std::cos(0.03 * v.abscissa()[i] + phase);
	}
	return OsiCubicSplineInterpolator(type, v);
}

void expectSameKnots(const OsiCubicSplineInterpolator& a, const OsiCubicSplineInterpolator& b)
{
	ASSERT_EQ(a.count(), b.count());
	EXPECT_EQ(a.type(), b.type());
	EXPECT_EQ(std::memcmp(a.knots(), b.knots(), sizeof(OsiCubicSplineKnot) * a.count()), 0);
}

TEST_F(SplineFile, SplinesFollowEachOtherAndReplaceWhatWasRead)
{
	const OsiCubicSplineInterpolator a = splineOf(OsiCubicSplineFlatEnds, 37, 0.2);
	const OsiCubicSplineInterpolator b = splineOf(OsiCubicSplineNatural, 3, 0.5);
	long long start = 0, end = 0;
	writeFile([&](OsiStructuredFile& out) {
		ASSERT_TRUE(a.write(out) && out.markPosition(start) && b.write(out));
		ASSERT_TRUE(out.markPosition(end));
		EXPECT_FALSE(OsiCubicSplineInterpolator().write(out)); // writes nothing
	});
	// 8-byte length, name, version, count, type, three doubles per knot.
	EXPECT_EQ(end - start, 8 + 4 + long(sizeof("OsiCubicSplineInterpolator")) + 4 + 4 + 4 + 9 * 8);
	OsiStructuredFile in(kTopClass, 1);
	ASSERT_TRUE(in.open(path.c_str(), false));
	OsiCubicSplineInterpolator first = splineOf(OsiCubicSplineNatural, 37, 9.0);
	OsiCubicSplineInterpolator second = splineOf(OsiCubicSplineFlatEnds, 4, 0.0);
	EXPECT_TRUE(first.read(in) && second.read(in));
	EXPECT_FALSE(OsiCubicSplineInterpolator().read(in));
	expectSameKnots(first, a);
	expectSameKnots(second, b);
}

// Every malformed or foreign block fails and leaves the spline as it was; a
// malformed spline block is passed over.
TEST_F(SplineFile, BadBlocksAreRefused)
{
	const struct
	{
		const char* what;
		const char* name;
		int count, type, doubles;
	} cases[] = {
	    {"another class", "SomethingElse", 3, 0, 9},
	    {"negative count", "OsiCubicSplineInterpolator", -3, 0, 9},
	    {"zero count", "OsiCubicSplineInterpolator", 0, 0, 0},
	    {"one knot", "OsiCubicSplineInterpolator", 1, 0, 3},
	    {"absurd count", "OsiCubicSplineInterpolator", 2000000000, 0, 9},
	    {"count one knot beyond the block", "OsiCubicSplineInterpolator", 4, 1, 9},
	    {"unknown type", "OsiCubicSplineInterpolator", 3, 2, 9},
	    {"negative type", "OsiCubicSplineInterpolator", 3, -1, 9},
	};
	const OsiCubicSplineInterpolator s = splineOf(OsiCubicSplineNatural, 5, 0.0);
	for (const auto& c : cases)
	{
		writeFile([&](OsiStructuredFile& out) {
			long long end = 0;
			ASSERT_TRUE(out.beginClass(c.name, 1, end));
			out.write(&c.count, TypedStream::kInt, 1);
			out.write(&c.type, TypedStream::kInt, 1);
			for (double v = 0; v < c.doubles; ++v)
				out.write(&v, TypedStream::kDouble, 1);
			ASSERT_TRUE(out.endBlock(end));
		});
		OsiStructuredFile in(kTopClass, 1);
		long long before = 0, after = 0;
		ASSERT_TRUE(in.open(path.c_str(), false) && in.markPosition(before));
		OsiCubicSplineInterpolator target = s;
		EXPECT_FALSE(target.read(in)) << c.what;
		ASSERT_TRUE(in.markPosition(after));
		EXPECT_EQ(after == before, c.what == cases[0].what) << c.what; // a foreign block stays
		expectSameKnots(target, s);
	}
}

} // namespace
