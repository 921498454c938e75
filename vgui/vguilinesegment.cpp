#include "vgui/vguilinesegment.h"

#include <algorithm>
#include <cmath>

namespace {

// Liang-Barsky: narrows the parameter interval [t0, t1] of start + t·d to
// where p·t <= q holds; false when it becomes empty.
bool narrow(double p, double q, double& t0, double& t1)
{
	if (p == 0.0)
		return q >= 0.0;
	const double t = q / p;
	if (p < 0.0)
	{
		if (t > t1)
			return false;
		t0 = std::max(t0, t);
	}
	else
	{
		if (t < t0)
			return false;
		t1 = std::min(t1, t);
	}
	return true;
}

// A point on the segment, held inside the rectangle against rounding.
VGuiPoint pointAt(const VGuiPoint& start, const VGuiPoint& d, double t, const VGuiRect& r)
{
	return {std::clamp(start.x + t * d.x, r.left, r.right),
	        std::clamp(start.y + t * d.y, r.top, r.bottom)};
}

double cross(const VGuiPoint& u, const VGuiPoint& v)
{
	return u.x * v.y - u.y * v.x;
}

} // namespace

bool VGuiLineSegment::clip(const VGuiRect& rect)
{
	const VGuiPoint d = end - start;
	if (std::isnan(d.x) || std::isnan(d.y))
		return false;
	double t0 = 0.0;
	double t1 = 1.0;
	if (!narrow(-d.x, start.x - rect.left, t0, t1) || !narrow(d.x, rect.right - start.x, t0, t1) ||
	    !narrow(-d.y, start.y - rect.top, t0, t1) || !narrow(d.y, rect.bottom - start.y, t0, t1))
		return false;
	if (t1 < 1.0)
		end = pointAt(start, d, t1, rect);
	if (t0 > 0.0)
		start = pointAt(start, d, t0, rect);
	return true;
}

bool VGuiLineSegment::intersect(const VGuiRect& rect) const
{
	VGuiLineSegment copy(*this);
	return copy.clip(rect);
}

bool VGuiLineSegment::intersect(const VGuiLineSegment& other, VGuiPoint& at) const
{
	const VGuiPoint d = end - start;
	const VGuiPoint e = other.end - other.start;
	const double denominator = cross(d, e);
	if (denominator == 0.0)
		return false;
	const VGuiPoint w = other.start - start;
	const double t = cross(w, e) / denominator;
	const double u = cross(w, d) / denominator;
	if (t < 0.0 || t > 1.0 || u < 0.0 || u > 1.0)
		return false;
	at = start + d * t;
	return true;
}
