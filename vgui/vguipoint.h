// A point (or a vector) of the graph toolkit in screen coordinates.
#pragma once

#include "vstgui/lib/cpoint.h"

class VGuiPoint
{
public:
	constexpr VGuiPoint() = default;
	constexpr VGuiPoint(double x, double y) : x(x), y(y) {}
	explicit VGuiPoint(const VSTGUI::CPoint& p) : x(p.x), y(p.y) {}

	VSTGUI::CPoint toCPoint() const { return VSTGUI::CPoint(x, y); }

	bool operator==(const VGuiPoint& p) const { return x == p.x && y == p.y; }
	bool operator!=(const VGuiPoint& p) const { return !(*this == p); }
	VGuiPoint operator+(const VGuiPoint& p) const { return {x + p.x, y + p.y}; }
	VGuiPoint operator-(const VGuiPoint& p) const { return {x - p.x, y - p.y}; }
	VGuiPoint operator*(double k) const { return {x * k, y * k}; }
	VGuiPoint& operator+=(const VGuiPoint& p)
	{
		x += p.x;
		y += p.y;
		return *this;
	}

	double x = 0.0;
	double y = 0.0;
};
