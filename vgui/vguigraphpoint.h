// A point in graph coordinates: the values of the x, y and z axes.
#pragma once

class VGuiGraphPoint
{
public:
	constexpr VGuiGraphPoint() = default;
	constexpr VGuiGraphPoint(double x, double y, double z) : x(x), y(y), z(z) {}

	// Component by component, the smaller of a's and b's where both are
	// positive, whichever is positive where one is, and this point's own
	// value where neither is: the smallest positive values of two data sets.
	void minimumPositiveOf(const VGuiGraphPoint& a, const VGuiGraphPoint& b);

	bool operator==(const VGuiGraphPoint& p) const { return x == p.x && y == p.y && z == p.z; }
	bool operator!=(const VGuiGraphPoint& p) const { return !(*this == p); }

	double x = 0.0;
	double y = 0.0;
	double z = 0.0;
};
