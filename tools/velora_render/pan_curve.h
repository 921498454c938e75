// The pan angle over time: points of (seconds, degrees), linear between them,
// held before the first and after the last.
#pragma once

#include <cstddef>
#include <vector>

namespace velora_render {

class PanCurve
{
public:
	struct Point
	{
		double seconds;
		double degrees;
	};

	static PanCurve constant(double degrees);
	static PanCurve line(double fromDegrees, double toDegrees, double durationSeconds);
	// Points in non-decreasing time; two points at one time make a step.
	explicit PanCurve(std::vector<Point> points);

	double at(double seconds) const;
	std::size_t size() const { return points.size(); }

private:
	std::vector<Point> points;
};

} // namespace velora_render
