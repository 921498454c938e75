// A point given by two vectors and two coefficients: origin + a·u + b·v.
// The vectors come either alone (about the point (0, 0)) or as three points,
// the origin and the ends of u and v.
#pragma once

#include "vgui/vguipoint.h"

class VGuiPointByVectors
{
public:
	VGuiPointByVectors(const VGuiPoint& u, const VGuiPoint& v, double a, double b)
	: u(u),
	  v(v),
	  a(a),
	  b(b)
	{}
	VGuiPointByVectors(const VGuiPoint& origin, const VGuiPoint& uEnd, const VGuiPoint& vEnd,
	                   double a, double b)
	: origin(origin),
	  u(uEnd - origin),
	  v(vEnd - origin),
	  a(a),
	  b(b)
	{}

	VGuiPoint point() const { return origin + u * a + v * b; }
	// Sets the coefficients so that point() is p; false, changing nothing,
	// when u and v are parallel (they span no plane).
	bool resolve(const VGuiPoint& p);

	VGuiPoint origin;
	VGuiPoint u;
	VGuiPoint v;
	double a;
	double b;
};
