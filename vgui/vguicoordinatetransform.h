// The toolkit's 2-D affine transform from data to screen. It carries its
// inverse alongside, updated operation by operation, so that mapping a screen
// point back to data never inverts a matrix. Each operation acts on points
// that have already passed through the transform built so far.
#pragma once

#include "vgui/vguipoint.h"

class VGuiCoOrdinateTransform
{
public:
	// (x, y) maps to (a·x + c·y + e, b·x + d·y + f). While identity is set
	// the coefficients hold the identity and composition ignores them.
	struct GuiCoOrdinateTransformMatrix
	{
		// This becomes m applied first, then the old this.
		void preMultiply(const GuiCoOrdinateTransformMatrix& m);
		// This becomes the old this applied first, then m.
		void postMultiply(const GuiCoOrdinateTransformMatrix& m);
		void map(VGuiPoint& p) const
		{
			const double x = p.x;
			p.x = a * x + c * p.y + e;
			p.y = b * x + d * p.y + f;
		}

		double a = 1.0;
		double b = 0.0;
		double c = 0.0;
		double d = 1.0;
		double e = 0.0;
		double f = 0.0;
		bool identity = true;
	};

	// How the two-number constructor reads its arguments.
	enum GuiTransformInitAs
	{
		initAsTranslation = 0,
		initAsScale = 1,
		// x' = x + y·y_arg, y' = x_arg·x + y; its inverse is taken as the
		// negated shear, exact only when one factor is 0.
		initAsShear = 2,
		// x is the angle in radians.
		initAsRotation = 3,
	};

	VGuiCoOrdinateTransform() = default;
	// Marked not identity whatever the numbers, even a zero translation.
	VGuiCoOrdinateTransform(double x, double y, GuiTransformInitAs kind);

	// Each applies its operation after the transform built so far (and its
	// inverse before the inverse so far); an identity operation is skipped.
	VGuiCoOrdinateTransform& translate(double tx, double ty);
	VGuiCoOrdinateTransform& scale(double sx, double sy);
	VGuiCoOrdinateTransform& rotate(double angle);
	VGuiCoOrdinateTransform& shear(double shx, double shy);
	VGuiCoOrdinateTransform& scaleAboutPoint(double px, double py, double sx, double sy);
	VGuiCoOrdinateTransform& rotateAboutPoint(double px, double py, double angle);
	// t applied first, then this.
	VGuiCoOrdinateTransform& preMultiply(const VGuiCoOrdinateTransform& t);
	// This applied first, then t.
	VGuiCoOrdinateTransform& postMultiply(const VGuiCoOrdinateTransform& t);

	// The same transform in the other direction.
	VGuiCoOrdinateTransform inverse() const;

	// The value v as the point (v, 0).
	VGuiPoint map(double v) const { return mapped(forward, VGuiPoint(v, 0.0)); }
	VGuiPoint map(const VGuiPoint& p) const { return mapped(forward, p); }
	VGuiPoint inverseMap(double v) const { return mapped(inverseMatrix, VGuiPoint(v, 0.0)); }
	VGuiPoint inverseMap(const VGuiPoint& p) const { return mapped(inverseMatrix, p); }
	// The direction that the angle's unit vector takes; 0 when it vanishes.
	double mapAngle(double angle) const { return angleThrough(forward, angle); }
	double inverseMapAngle(double angle) const { return angleThrough(inverseMatrix, angle); }
	// The length that a horizontal (or vertical) length m takes.
	double mapMagnitude(double m, bool horizontal) const
	{
		return magnitudeThrough(forward, m, horizontal);
	}
	double inverseMapMagnitude(double m, bool horizontal) const
	{
		return magnitudeThrough(inverseMatrix, m, horizontal);
	}

	// a, b, c, d, e, f of the forward (or inverse) matrix into out[0..5].
	void getMatrix(double* out, bool forwardMatrix) const;

	// Maps scalar values onto the direction of the screen line from `from` to
	// `to`: fromValue to the origin, toValue to the vector to - from. The
	// start point is not added; callers add it or map differences.
	void realizeLineMapping(const VGuiPoint& from, const VGuiPoint& to, double fromValue,
	                        double toValue);

private:
	static VGuiPoint mapped(const GuiCoOrdinateTransformMatrix& m, VGuiPoint p)
	{
		m.map(p);
		return p;
	}
	static double angleThrough(const GuiCoOrdinateTransformMatrix& m, double angle);
	static double magnitudeThrough(const GuiCoOrdinateTransformMatrix& m, double magnitude,
	                               bool horizontal);

	GuiCoOrdinateTransformMatrix forward;
	GuiCoOrdinateTransformMatrix inverseMatrix;
};
