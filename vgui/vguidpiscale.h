// Converts between typographic points and device pixels at a resolution in
// dots per inch, times one scale shared by the whole process (the display's
// backing scale).
#pragma once

class VGuiDpiScale
{
public:
	explicit VGuiDpiScale(double dpi = 72.0) : dpi(dpi) {}
	virtual ~VGuiDpiScale() = default;

	double pointsToPixels(double points) const;
	double pixelsToPoints(double pixels) const;
	// Rounded half up, truncated towards zero.
	int pointsToPixels(int points) const;
	int pixelsToPoints(int pixels) const;

	// The index of the value nearest to dpi (the first of equally near ones);
	// -1 for no values.
	int closestIndex(const double* values, int count) const;

	static double GlobalScale;

	double dpi;
};
