#include "osi/numerics/osicubicsplineinterpolator.h"
#include "osi/numerics/osisplinevector.h"
#include "persist/osistructuredfile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>

namespace {

const char kTopClass[] = "SplineTest";

class SplineFile : public ::testing::Test
{
protected:
	void TearDown() override { std::remove(path.c_str()); }

	// A complete file of class kTopClass whose body `fill` writes.
	void writeFile(const std::function<void(OsiStructuredFile&)>& fill)
	{
		OsiStructuredFile out(kTopClass, 1);
		ASSERT_TRUE(out.open(path.c_str(), true));
		fill(out);
		ASSERT_TRUE(out.close(true));
	}

	// A block named like the spline's, with whatever fields `fill` writes.
	void writeBlock(const std::function<void(OsiStructuredFile&)>& fill)
	{
		writeFile([&](OsiStructuredFile& out) {
			long long end = 0;
			ASSERT_TRUE(out.beginClass("OsiCubicSplineInterpolator", 1, end));
			fill(out);
			ASSERT_TRUE(out.endBlock(end));
		});
	}

	bool readInto(OsiCubicSplineInterpolator& spline)
	{
		OsiStructuredFile in(kTopClass, 1);
		return in.open(path.c_str(), false) && spline.read(in);
	}

	// One file per case: CTest runs the cases as parallel processes.
	std::string path = ::testing::TempDir() + "velora_spline_file_" +
	                   ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".bin";
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

void writeInts(OsiStructuredFile& out, int count, int type)
{
	out.write(&count, TypedStream::kInt, 1);
	out.write(&type, TypedStream::kInt, 1);
}

void writeDoubles(OsiStructuredFile& out, int n)
{
	for (int i = 0; i < n; ++i)
	{
		const double v = i;
		out.write(&v, TypedStream::kDouble, 1);
	}
}

TEST_F(SplineFile, RoundTripKeepsEveryKnotAndTheType)
{
	const OsiCubicSplineInterpolator original = splineOf(OsiCubicSplineFlatEnds, 37, 0.2);
	writeFile([&](OsiStructuredFile& out) { EXPECT_TRUE(original.write(out)); });
	OsiCubicSplineInterpolator loaded;
	ASSERT_TRUE(readInto(loaded));
	expectSameKnots(loaded, original);
	OsiCubicSplineContext a, b;
	for (double x = -100.0; x <= 100.0; x += 0.37)
	{
		original.findContext(x, a);
		loaded.findContext(x, b);
		EXPECT_EQ(loaded.evaluateContext(x, b), original.evaluateContext(x, a));
	}
}

TEST_F(SplineFile, TheBlockLayout)
{
	// 8-byte length, name string, version, count, type, 3 x count doubles.
	const OsiCubicSplineInterpolator original = splineOf(OsiCubicSplineNatural, 3, 0.0);
	long long start = 0, end = 0;
	writeFile([&](OsiStructuredFile& out) {
		ASSERT_TRUE(out.markPosition(start));
		EXPECT_TRUE(original.write(out));
		ASSERT_TRUE(out.markPosition(end));
	});
	const long long nameBytes = 4 + sizeof("OsiCubicSplineInterpolator");
	EXPECT_EQ(end - start, 8 + nameBytes + 4 + 4 + 4 + 3 * 3 * 8);
}

TEST_F(SplineFile, ReadingAnotherCountReallocatesAndTheSameCountIsReplaced)
{
	const OsiCubicSplineInterpolator nine = splineOf(OsiCubicSplineNatural, 9, 1.0);
	writeFile([&](OsiStructuredFile& out) { EXPECT_TRUE(nine.write(out)); });

	OsiCubicSplineInterpolator four = splineOf(OsiCubicSplineFlatEnds, 4, 0.0);
	ASSERT_TRUE(readInto(four));
	expectSameKnots(four, nine);

	OsiCubicSplineInterpolator alsoNine = splineOf(OsiCubicSplineFlatEnds, 9, 2.0);
	ASSERT_TRUE(readInto(alsoNine));
	expectSameKnots(alsoNine, nine);
}

TEST_F(SplineFile, AnEmptySplineWritesNothing)
{
	long long before = 0, after = 0;
	writeFile([&](OsiStructuredFile& out) {
		out.markPosition(before);
		EXPECT_FALSE(OsiCubicSplineInterpolator().write(out));
		out.markPosition(after);
	});
	EXPECT_EQ(after, before);
	OsiCubicSplineInterpolator s;
	EXPECT_FALSE(readInto(s));
}

TEST_F(SplineFile, SeveralSplinesFollowEachOther)
{
	const OsiCubicSplineInterpolator a = splineOf(OsiCubicSplineNatural, 5, 0.0);
	const OsiCubicSplineInterpolator b = splineOf(OsiCubicSplineFlatEnds, 11, 0.5);
	writeFile([&](OsiStructuredFile& out) {
		EXPECT_TRUE(a.write(out));
		EXPECT_TRUE(b.write(out));
	});
	OsiStructuredFile in(kTopClass, 1);
	ASSERT_TRUE(in.open(path.c_str(), false));
	OsiCubicSplineInterpolator first, second, third;
	EXPECT_TRUE(first.read(in));
	EXPECT_TRUE(second.read(in));
	EXPECT_FALSE(third.read(in));
	expectSameKnots(first, a);
	expectSameKnots(second, b);
}

TEST_F(SplineFile, ABlockOfAnotherClassIsLeftInPlace)
{
	const OsiCubicSplineInterpolator s = splineOf(OsiCubicSplineNatural, 5, 0.0);
	writeFile([&](OsiStructuredFile& out) {
		long long end = 0;
		out.beginClass("SomethingElse", 1, end);
		writeDoubles(out, 4);
		out.endBlock(end);
	});
	OsiStructuredFile in(kTopClass, 1);
	ASSERT_TRUE(in.open(path.c_str(), false));
	long long before = 0, after = 0;
	in.markPosition(before);
	OsiCubicSplineInterpolator target = s;
	EXPECT_FALSE(target.read(in));
	in.markPosition(after);
	EXPECT_EQ(after, before);
	expectSameKnots(target, s);
}

// Every malformed block fails and leaves the spline as it was.
TEST_F(SplineFile, BadCountsAndTypesAreRefused)
{
	const OsiCubicSplineInterpolator s = splineOf(OsiCubicSplineNatural, 5, 0.0);
	struct Case
	{
		const char* what;
		int count;
		int type;
		int doubles;
	};
	const Case cases[] = {
	    {"negative count", -3, 0, 9},
	    {"zero count", 0, 0, 0},
	    {"one knot", 1, 0, 3},
	    {"absurd count", 2000000000, 0, 9},
	    {"count beyond the block", 100, 0, 9},
	    {"count one knot beyond the block", 4, 1, 9},
	    {"unknown type", 3, 2, 9},
	    {"negative type", 3, -1, 9},
	};
	for (const Case& c : cases)
	{
		writeBlock([&](OsiStructuredFile& out) {
			writeInts(out, c.count, c.type);
			writeDoubles(out, c.doubles);
		});
		OsiCubicSplineInterpolator target = s;
		EXPECT_FALSE(readInto(target)) << c.what;
		expectSameKnots(target, s);
	}
}

TEST_F(SplineFile, ABlockLengthBeyondTheFileAllocatesOnlyWhatIsRead)
{
	// The block claims 2^40 bytes and a count that would fit in them: the
	// read fails at the end of the file, after one chunk of knots at most.
	writeFile([&](OsiStructuredFile& out) {
		long long end = 0;
		ASSERT_TRUE(out.beginClass("OsiCubicSplineInterpolator", 1, end));
		writeInts(out, 400000000, 0);
		writeDoubles(out, 30);
		long long here = 0;
		ASSERT_TRUE(out.markPosition(here));
		ASSERT_TRUE(out.jumpPosition(end));
		const long long huge = 1LL << 40;
		ASSERT_TRUE(out.write(&huge, TypedStream::kLongLong, 1));
		ASSERT_TRUE(out.jumpPosition(here));
	});
	OsiCubicSplineInterpolator target = splineOf(OsiCubicSplineNatural, 5, 0.0);
	EXPECT_FALSE(readInto(target));
	EXPECT_EQ(target.count(), 5);
}

TEST_F(SplineFile, ATruncatedFileFails)
{
	const OsiCubicSplineInterpolator s = splineOf(OsiCubicSplineNatural, 20, 0.0);
	writeFile([&](OsiStructuredFile& out) { EXPECT_TRUE(s.write(out)); });
	std::filesystem::resize_file(path, std::filesystem::file_size(path) - 40);
	OsiCubicSplineInterpolator target;
	EXPECT_FALSE(readInto(target));
	EXPECT_EQ(target.count(), 0);
}

} // namespace
