#include "vgui/vguicoordinatetransform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Transform = VGuiCoOrdinateTransform;
constexpr double kPi = 3.14159265358979323846;

// A plain 3x3 matrix acting on column vectors (x, y, 1).
struct Matrix3
{
	double m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

	Matrix3 operator*(const Matrix3& r) const
	{
		Matrix3 p;
		for (int i = 0; i < 3; ++i)
			for (int j = 0; j < 3; ++j)
				p.m[i][j] = m[i][0] * r.m[0][j] + m[i][1] * r.m[1][j] + m[i][2] * r.m[2][j];
		return p;
	}
	VGuiPoint apply(const VGuiPoint& p) const
	{
		return {m[0][0] * p.x + m[0][1] * p.y + m[0][2], m[1][0] * p.x + m[1][1] * p.y + m[1][2]};
	}
	Matrix3 inverse() const
	{
		const double det = m[0][0] * m[1][1] - m[0][1] * m[1][0];
		Matrix3 r;
		r.m[0][0] = m[1][1] / det;
		r.m[0][1] = -m[0][1] / det;
		r.m[1][0] = -m[1][0] / det;
		r.m[1][1] = m[0][0] / det;
		r.m[0][2] = -(r.m[0][0] * m[0][2] + r.m[0][1] * m[1][2]);
		r.m[1][2] = -(r.m[1][0] * m[0][2] + r.m[1][1] * m[1][2]);
		return r;
	}
};

Matrix3 matrix(double a, double c, double e, double b, double d, double f)
{
	Matrix3 r;
	r.m[0][0] = a;
	r.m[0][1] = c;
	r.m[0][2] = e;
	r.m[1][0] = b;
	r.m[1][1] = d;
	r.m[1][2] = f;
	return r;
}

Matrix3 translation(double x, double y)
{
	return matrix(1, 0, x, 0, 1, y);
}

Matrix3 rotation(double t)
{
	return matrix(std::cos(t), -std::sin(t), 0, std::sin(t), std::cos(t), 0);
}

void expectNear(const VGuiPoint& p, const VGuiPoint& q, double tolerance)
{
	EXPECT_NEAR(p.x, q.x, tolerance);
	EXPECT_NEAR(p.y, q.y, tolerance);
}

// Random sequences of every operation, the same applied to a plain matrix as
// M ← E·M. Shears keep one factor 0 so that the carried inverse is exact.
TEST(VGuiCoOrdinateTransform, MatchesPlainMatrixProducts)
{
	std::mt19937 rng(7);
	std::uniform_real_distribution<double> value(-3.0, 3.0);
	std::uniform_real_distribution<double> factor(0.25, 4.0);
	for (int sequence = 0; sequence < 200; ++sequence)
	{
		Transform t;
		Matrix3 reference;
		for (int step = 0; step < 8; ++step)
		{
			const double x = value(rng);
			const double y = value(rng);
			const double sx = factor(rng) * (rng() % 2 ? 1 : -1);
			const double sy = factor(rng);
			switch (rng() % 8)
			{
			case 0:
				t.translate(x, y);
				reference = translation(x, y) * reference;
				break;
			case 1:
				t.scale(sx, sy);
				reference = matrix(sx, 0, 0, 0, sy, 0) * reference;
				break;
			case 2:
				t.rotate(x);
				reference = rotation(x) * reference;
				break;
			case 3:
				t.shear(x, 0.0);
				reference = matrix(1, 0, 0, x, 1, 0) * reference;
				break;
			case 4:
				t.shear(0.0, y);
				reference = matrix(1, y, 0, 0, 1, 0) * reference;
				break;
			case 5:
				t.scaleAboutPoint(x, y, sx, sy);
				reference = translation(x, y) * matrix(sx, 0, 0, 0, sy, 0) * translation(-x, -y) *
				            reference;
				break;
			case 6:
				t.rotateAboutPoint(x, y, sx);
				reference = translation(x, y) * rotation(sx) * translation(-x, -y) * reference;
				break;
			default:
			{
				Transform other(x, y, Transform::initAsTranslation);
				other.rotate(sx);
				const Matrix3 otherMatrix = rotation(sx) * translation(x, y);
				if (rng() % 2)
				{
					t.preMultiply(other);
					reference = reference * otherMatrix;
				}
				else
				{
					t.postMultiply(other);
					reference = otherMatrix * reference;
				}
			}
			}
		}
		double coefficients[6];
		t.getMatrix(coefficients, true);
		const Matrix3 got = matrix(coefficients[0], coefficients[2], coefficients[4],
		                           coefficients[1], coefficients[3], coefficients[5]);
		const Matrix3 inverse = reference.inverse();
		for (int i = 0; i < 2; ++i)
			for (int j = 0; j < 3; ++j)
				ASSERT_NEAR(got.m[i][j], reference.m[i][j],
				            1e-9 * (1 + std::fabs(reference.m[i][j])));
		for (int k = 0; k < 4; ++k)
		{
			const VGuiPoint p(value(rng), value(rng));
			const VGuiPoint expected = reference.apply(p);
			const double tolerance = 1e-9 * (1 + std::fabs(expected.x) + std::fabs(expected.y));
			expectNear(t.map(p), expected, tolerance);
			expectNear(t.map(p.x), reference.apply(VGuiPoint(p.x, 0)), tolerance);
			expectNear(t.inverseMap(expected), p, 1e-7);
			expectNear(t.inverse().map(p), inverse.apply(p), 1e-7 * (1 + std::fabs(p.x)));
		}
	}
}

TEST(VGuiCoOrdinateTransform, EdgeCases)
{
	Transform t;
	t.translate(2, 3).scale(10, 10);
	expectNear(t.map(VGuiPoint(0, 0)), VGuiPoint(20, 30), 0);
	expectNear(t.inverseMap(VGuiPoint(20, 30)), VGuiPoint(0, 0), 0);
	EXPECT_EQ(t.mapMagnitude(3, true), 30);

	expectNear(Transform().rotate(kPi / 2).map(VGuiPoint(1, 0)), VGuiPoint(0, 1), 1e-15);

	// A zero translation still composes as a matrix.
	Transform zero(0, 0, Transform::initAsTranslation);
	zero.preMultiply(Transform(2, 3, Transform::initAsScale));
	expectNear(zero.map(VGuiPoint(1, 1)), VGuiPoint(2, 3), 0);
	expectNear(zero.inverseMap(VGuiPoint(2, 3)), VGuiPoint(1, 1), 0);

	const VGuiPoint p(3, 7);
	Transform oneShear;
	oneShear.shear(0.5, 0);
	expectNear(oneShear.inverseMap(oneShear.map(p)), p, 0);
	Transform twoShears;
	twoShears.shear(0.5, 0.5);
	const VGuiPoint back = twoShears.inverseMap(twoShears.map(p));
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

struct LineCase
{
	VGuiPoint from;
	VGuiPoint to;
	double fromValue;
	double toValue;
	double angle;
};

const LineCase kLineCases[] = {
    {{10, 10}, {10, 50}, 0, 4, 1.570796326795},
    {{10, 50}, {10, 10}, 0, 4, -1.570796326795},
    {{0, 0}, {30, 40}, -1, 9, std::atan2(40.0, 30.0)},
    {{5, 5}, {-5, 5}, 2, 3, kPi},
};

TEST(VGuiCoOrdinateTransform, RealizeLineMapping)
{
	for (const LineCase& c : kLineCases)
	{
		Transform t;
		t.translate(100, 100).shear(1, 1);
		t.realizeLineMapping(c.from, c.to, c.fromValue, c.toValue);
		const double k =
		    std::hypot(c.to.x - c.from.x, c.to.y - c.from.y) / std::fabs(c.toValue - c.fromValue);
		const Matrix3 expected =
		    rotation(c.angle) * matrix(k, 0, 0, 0, k, 0) * translation(-c.fromValue, 0);
		double got[6];
		t.getMatrix(got, true);
		EXPECT_EQ(got[0], expected.m[0][0]);
		EXPECT_EQ(got[1], expected.m[1][0]);
		EXPECT_NEAR(got[4], expected.m[0][2], 1e-12);
		expectNear(t.map(c.fromValue), VGuiPoint(0, 0), 1e-12);
		expectNear(t.map(c.toValue), c.to - c.from, 1e-9);
	}
}

} // namespace
