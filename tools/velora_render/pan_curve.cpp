#include "pan_curve.h"

#include <algorithm>

namespace velora_render {

PanCurve::PanCurve(std::vector<Point> p) : points(std::move(p)) {}

PanCurve PanCurve::constant(double degrees)
{
	return PanCurve({{0.0, degrees}});
}

PanCurve PanCurve::line(double fromDegrees, double toDegrees, double durationSeconds)
{
	return PanCurve({{0.0, fromDegrees}, {durationSeconds, toDegrees}});
}

double PanCurve::at(double seconds) const
{
	// The first point later than `seconds`; its predecessor is at or before it,
	// so a step (two points at one time) takes its second value from then on.
	const auto next = std::upper_bound(points.begin(), points.end(), seconds,
	                                   [](double t, const Point& p) { return t < p.seconds; });
	if (next == points.begin())
		return points.front().degrees;
	if (next == points.end())
		return points.back().degrees;
	const Point& a = *(next - 1);
	const Point& b = *next;
	return a.degrees + (b.degrees - a.degrees) * (seconds - a.seconds) / (b.seconds - a.seconds);
}

} // namespace velora_render
