#include "vgui/vguicoordinatetransform.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <iterator>
#include <random>

namespace {

using Transform = VGuiCoOrdinateTransform;
constexpr double kPi = 3.14159265358979323846;

// Plain 3x3 matrices acting on column vectors (x, y, 1), row by row.
using M3 = std::array<double, 9>;

M3 product(const M3& l, const M3& r)
{
	M3 p{};
	for (int i = 0; i < 9; ++i)
		p[i] = l[i / 3 * 3] * r[i % 3] + l[i / 3 * 3 + 1] * r[3 + i % 3] +
		       l[i / 3 * 3 + 2] * r[6 + i % 3];
	return p;
}

// x' = a·x + c·y + e, y' = b·x + d·y + f.
M3 affine(double a, double b, double c, double d, double e, double f)
{
	return {a, c, e, b, d, f, 0, 0, 1};
}

const auto translation = [](double x, double y) { return affine(1, 0, 0, 1, x, y); };
const auto scaling = [](double x, double y) { return affine(x, 0, 0, y, 0, 0); };
const auto rotation = [](double t) { return affine(cos(t), sin(t), -sin(t), cos(t), 0, 0); };
const auto about = [](double x, double y, const M3& m) {
	return product(translation(x, y), product(m, translation(-x, -y)));
};

VGuiPoint through(const M3& m, const VGuiPoint& p)
{
	return {m[0] * p.x + m[1] * p.y + m[2], m[3] * p.x + m[4] * p.y + m[5]};
}

void expectNear(const VGuiPoint& p, const VGuiPoint& q, double tolerance)
{
	EXPECT_NEAR(p.x, q.x, tolerance);
	EXPECT_NEAR(p.y, q.y, tolerance);
}

// Each operation on a transform, and the plain matrix E of the same operation.
struct Op
{
	void (*apply)(Transform&, double x, double y);
	M3 (*matrix)(double x, double y);
	bool pre; // composes as M·E rather than E·M
};

const Op kOps[] = {
    {[](Transform& t, double x, double y) { t.translate(x, y); }, translation, false},
    {[](Transform& t, double x, double y) { t.scale(exp(x), -exp(y)); },
     [](double x, double y) { return scaling(exp(x), -exp(y)); }, false},
    {[](Transform& t, double x, double) { t.rotate(x); },
     [](double x, double) { return rotation(x); }, false},
    // One factor 0, so that the carried inverse is exact.
    {[](Transform& t, double x, double) { t.shear(x, 0); },
     [](double x, double) { return affine(1, x, 0, 1, 0, 0); }, false},
    {[](Transform& t, double, double y) { t.shear(0, y); },
     [](double, double y) { return affine(1, 0, y, 1, 0, 0); }, false},
    {[](Transform& t, double x, double y) { t.scaleAboutPoint(x, y, exp(y), exp(x)); },
     [](double x, double y) { return about(x, y, scaling(exp(y), exp(x))); }, false},
    {[](Transform& t, double x, double y) { t.rotateAboutPoint(x, y, x * y); },
     [](double x, double y) { return about(x, y, rotation(x * y)); }, false},
    {[](Transform& t, double x, double y) {
	     t.postMultiply(Transform(x, y, Transform::initAsTranslation));
     },
     translation, false},
    {[](Transform& t, double x, double) {
	     t.preMultiply(Transform(x, 0, Transform::initAsRotation));
     },
     [](double x, double) { return rotation(x); }, true},
};

// Random sequences of the operations against products of plain matrices.
TEST(VGuiCoOrdinateTransform, MatchesPlainMatrixProducts)
{
	std::mt19937 rng(7);
	std::uniform_real_distribution<double> value(-1.5, 1.5);
	for (int sequence = 0; sequence < 300; ++sequence)
	{
		Transform t;
		M3 reference = scaling(1, 1);
		for (int step = 0; step < 8; ++step)
		{
			const Op& op = kOps[rng() % std::size(kOps)];
			const double x = value(rng);
			const double y = value(rng);
			op.apply(t, x, y);
			reference =
			    op.pre ? product(reference, op.matrix(x, y)) : product(op.matrix(x, y), reference);
		}
		double got[6];
		t.getMatrix(got, true);
		const M3 m = affine(got[0], got[1], got[2], got[3], got[4], got[5]);
		for (int i = 0; i < 9; ++i)
			ASSERT_NEAR(m[i], reference[i], 1e-9 * (1 + std::fabs(reference[i]))) << sequence;
		const VGuiPoint p(value(rng), value(rng));
		const VGuiPoint q = through(reference, p);
		const double tolerance = 1e-9 * (1 + std::fabs(q.x) + std::fabs(q.y));
		expectNear(t.map(p), q, tolerance);
		expectNear(t.map(p.x), through(reference, VGuiPoint(p.x, 0)), tolerance);
		expectNear(t.inverseMap(q), p, 1e-7);
		expectNear(t.inverse().map(q), p, 1e-7);
	}
}

TEST(VGuiCoOrdinateTransform, EdgeCases)
{
	// A zero translation is not the identity, and still composes correctly.
	Transform zero(0, 0, Transform::initAsTranslation);
	zero.preMultiply(Transform(2, 3, Transform::initAsScale));
	expectNear(zero.map(VGuiPoint(1, 1)), VGuiPoint(2, 3), 0);
	expectNear(zero.inverseMap(VGuiPoint(2, 3)), VGuiPoint(1, 1), 0);

	const VGuiPoint p(3, 7);
	expectNear(Transform().shear(0.5, 0).inverseMap(Transform().shear(0.5, 0).map(p)), p, 0);
	const VGuiPoint back =
	    Transform().shear(0.5, 0.5).inverseMap(Transform().shear(0.5, 0.5).map(p));
	EXPECT_GT(std::fabs(back.x - p.x) + std::fabs(back.y - p.y), 1.0);

	Transform scaled;
	scaled.scale(2, 5);
	EXPECT_EQ(scaled.mapMagnitude(3, true), 6);
	EXPECT_EQ(scaled.mapMagnitude(3, false), 15);
	EXPECT_EQ(scaled.inverseMapMagnitude(15, false), 3);
	EXPECT_DOUBLE_EQ(Transform().rotate(0.5).mapMagnitude(2, true), 2);
	EXPECT_DOUBLE_EQ(Transform().shear(0, 1).mapAngle(kPi / 2), kPi / 4);
	EXPECT_EQ(Transform().scale(0, 0).mapAngle(1.0), 0);
	EXPECT_DOUBLE_EQ(Transform().rotate(0.25).inverseMapAngle(1.0), 0.75);
}

// from, to, fromValue, toValue and the angle expected. Vertical lines turn by
// the 13-digit quarter turn, not by pi/2.
const double kLineCases[][7] = {
    {10, 10, 10, 50, 0, 4, 1.570796326795},
    {10, 50, 10, 10, 0, 4, -1.570796326795},
    {0, 0, 30, 40, -1, 9, std::atan2(40.0, 30.0)},
};

TEST(VGuiCoOrdinateTransform, RealizeLineMapping)
{
	for (const auto& c : kLineCases)
	{
		const VGuiPoint from(c[0], c[1]);
		const VGuiPoint to(c[2], c[3]);
		Transform t;
		t.translate(100, 100).shear(1, 1);
		t.realizeLineMapping(from, to, c[4], c[5]);
		const double k = std::hypot(to.x - from.x, to.y - from.y) / std::fabs(c[5] - c[4]);
		double got[6];
		t.getMatrix(got, true);
		EXPECT_EQ(got[0], k * std::cos(c[6]));
		EXPECT_EQ(got[1], k * std::sin(c[6]));
		expectNear(t.map(c[4]), VGuiPoint(0, 0), 1e-12);
		expectNear(t.map(c[5]), to - from, 1e-9);
	}
}

} // namespace
