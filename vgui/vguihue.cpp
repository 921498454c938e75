#include "vgui/vguihue.h"

#include <cmath>

int VGuiHue::of(int red, int green, int blue, int max, int delta)
{
	const double d = delta;
	double sector;
	if (max == red)
		sector = (green - blue) / d;
	else if (max == green)
		sector = 2.0 + (blue - red) / d;
	else
		sector = 4.0 + (red - green) / d;
	double degrees = sector * 60.0;
	if (degrees < 0.0)
		degrees += 360.0;
	return static_cast<int>(std::lrint(degrees));
}

int VGuiHue::wrapNegative(int hue)
{
	if (hue >= 0)
		return hue;
	const int h = hue % 360;
	return h < 0 ? h + 360 : h;
}
