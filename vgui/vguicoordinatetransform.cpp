#include "vgui/vguicoordinatetransform.h"

#include <cmath>

namespace {

using Matrix = VGuiCoOrdinateTransform::GuiCoOrdinateTransformMatrix;

// The matrix that applies first and then then.
Matrix composed(const Matrix& first, const Matrix& then)
{
	Matrix m;
	m.a = then.a * first.a + then.c * first.b;
	m.b = then.b * first.a + then.d * first.b;
	m.c = then.a * first.c + then.c * first.d;
	m.d = then.b * first.c + then.d * first.d;
	m.e = then.a * first.e + then.c * first.f + then.e;
	m.f = then.b * first.e + then.d * first.f + then.f;
	m.identity = false;
	return m;
}

// The 13-digit quarter turn of vertical screen lines.
constexpr double kQuarterTurn = 1.570796326795;

} // namespace

void Matrix::preMultiply(const Matrix& m)
{
	if (m.identity)
		return;
	*this = identity ? m : composed(m, *this);
}

void Matrix::postMultiply(const Matrix& m)
{
	if (m.identity)
		return;
	*this = identity ? m : composed(*this, m);
}

VGuiCoOrdinateTransform::VGuiCoOrdinateTransform(double x, double y, GuiTransformInitAs kind)
{
	switch (kind)
	{
	case initAsTranslation:
		forward.e = x;
		forward.f = y;
		inverseMatrix.e = -x;
		inverseMatrix.f = -y;
		break;
	case initAsScale:
		forward.a = x;
		forward.d = y;
		inverseMatrix.a = 1.0 / x;
		inverseMatrix.d = 1.0 / y;
		break;
	case initAsShear:
		forward.b = x;
		forward.c = y;
		inverseMatrix.b = -x;
		inverseMatrix.c = -y;
		break;
	case initAsRotation:
	{
		const double cosine = std::cos(x);
		const double sine = std::sin(x);
		forward.a = forward.d = inverseMatrix.a = inverseMatrix.d = cosine;
		forward.b = inverseMatrix.c = sine;
		forward.c = inverseMatrix.b = -sine;
		break;
	}
	}
	forward.identity = false;
	inverseMatrix.identity = false;
}

VGuiCoOrdinateTransform& VGuiCoOrdinateTransform::translate(double tx, double ty)
{
	if (tx == 0.0 && ty == 0.0)
		return *this;
	return postMultiply(VGuiCoOrdinateTransform(tx, ty, initAsTranslation));
}

VGuiCoOrdinateTransform& VGuiCoOrdinateTransform::scale(double sx, double sy)
{
	if (sx == 1.0 && sy == 1.0)
		return *this;
	return postMultiply(VGuiCoOrdinateTransform(sx, sy, initAsScale));
}

VGuiCoOrdinateTransform& VGuiCoOrdinateTransform::rotate(double angle)
{
	if (angle == 0.0)
		return *this;
	return postMultiply(VGuiCoOrdinateTransform(angle, 0.0, initAsRotation));
}

VGuiCoOrdinateTransform& VGuiCoOrdinateTransform::shear(double shx, double shy)
{
	if (shx == 0.0 && shy == 0.0)
		return *this;
	return postMultiply(VGuiCoOrdinateTransform(shx, shy, initAsShear));
}

VGuiCoOrdinateTransform& VGuiCoOrdinateTransform::scaleAboutPoint(double px, double py, double sx,
                                                                  double sy)
{
	if (sx == 1.0 && sy == 1.0)
		return *this;
	return translate(-px, -py).scale(sx, sy).translate(px, py);
}

VGuiCoOrdinateTransform& VGuiCoOrdinateTransform::rotateAboutPoint(double px, double py,
                                                                   double angle)
{
	if (angle == 0.0)
		return *this;
	return translate(-px, -py).rotate(angle).translate(px, py);
}

VGuiCoOrdinateTransform& VGuiCoOrdinateTransform::preMultiply(const VGuiCoOrdinateTransform& t)
{
	forward.preMultiply(t.forward);
	inverseMatrix.postMultiply(t.inverseMatrix);
	return *this;
}

VGuiCoOrdinateTransform& VGuiCoOrdinateTransform::postMultiply(const VGuiCoOrdinateTransform& t)
{
	forward.postMultiply(t.forward);
	inverseMatrix.preMultiply(t.inverseMatrix);
	return *this;
}

VGuiCoOrdinateTransform VGuiCoOrdinateTransform::inverse() const
{
	VGuiCoOrdinateTransform t;
	t.forward = inverseMatrix;
	t.inverseMatrix = forward;
	return t;
}

double VGuiCoOrdinateTransform::angleThrough(const Matrix& m, double angle)
{
	const VGuiPoint d =
	    mapped(m, VGuiPoint(std::cos(angle), std::sin(angle))) - mapped(m, VGuiPoint(0.0, 0.0));
	if (d.x == 0.0 && d.y == 0.0)
		return 0.0;
	return std::atan2(d.y, d.x);
}

double VGuiCoOrdinateTransform::magnitudeThrough(const Matrix& m, double magnitude, bool horizontal)
{
	const VGuiPoint end = horizontal ? VGuiPoint(magnitude, 0.0) : VGuiPoint(0.0, magnitude);
	const VGuiPoint d = mapped(m, end) - mapped(m, VGuiPoint(0.0, 0.0));
	if (d.x == 0.0)
		return std::fabs(d.y);
	if (d.y == 0.0)
		return std::fabs(d.x);
	return std::sqrt(d.x * d.x + d.y * d.y);
}

void VGuiCoOrdinateTransform::getMatrix(double* out, bool forwardMatrix) const
{
	const Matrix& m = forwardMatrix ? forward : inverseMatrix;
	out[0] = m.a;
	out[1] = m.b;
	out[2] = m.c;
	out[3] = m.d;
	out[4] = m.e;
	out[5] = m.f;
}

void VGuiCoOrdinateTransform::realizeLineMapping(const VGuiPoint& from, const VGuiPoint& to,
                                                 double fromValue, double toValue)
{
	const double dx = to.x - from.x;
	const double dy = to.y - from.y;
	double angle = std::atan2(dy, dx);
	if (dx == 0.0)
		angle = dy >= 0.0 ? kQuarterTurn : -kQuarterTurn;
	const double k = std::sqrt(dx * dx + dy * dy) / std::fabs(toValue - fromValue);
	*this = VGuiCoOrdinateTransform();
	translate(-fromValue, 0.0).scale(k, k).rotate(angle);
}
