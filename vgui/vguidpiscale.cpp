#include "vgui/vguidpiscale.h"

#include <cmath>

double VGuiDpiScale::GlobalScale = 1.0;

double VGuiDpiScale::pointsToPixels(double points) const
{
	return points * GlobalScale * dpi / 72.0;
}

double VGuiDpiScale::pixelsToPoints(double pixels) const
{
	return pixels * 72.0 / (GlobalScale * dpi);
}

int VGuiDpiScale::pointsToPixels(int points) const
{
	return static_cast<int>(pointsToPixels(static_cast<double>(points)) + 0.5);
}

int VGuiDpiScale::pixelsToPoints(int pixels) const
{
	return static_cast<int>(pixelsToPoints(static_cast<double>(pixels)) + 0.5);
}

int VGuiDpiScale::closestIndex(const double* values, int count) const
{
	if (values == nullptr || count < 1)
		return -1;
	int best = 0;
	for (int i = 1; i < count; ++i)
	{
		if (std::fabs(values[i] - dpi) < std::fabs(values[best] - dpi))
			best = i;
	}
	return best;
}
