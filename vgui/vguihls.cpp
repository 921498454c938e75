#include "vgui/vguihls.h"

#include "vgui/vguicolour.h"

#include <cmath>

void VGuiHls::set(char component, int v)
{
	switch (component)
	{
	case 'h':
		hue = v;
		break;
	case 'l':
		lightness = v;
		break;
	case 's':
		saturation = v;
		break;
	default:
		break;
	}
}

void VGuiHls::normaliseHue()
{
	if (hue >= 360)
		hue = (hue - 360) % 360;
	hue = VGuiHue::wrapNegative(hue);
}

VGuiColour VGuiHls::toRGB(unsigned char alpha)
{
	if (hue == VGuiHue::Undefined || saturation == 0)
	{
		const auto l = static_cast<uint8_t>(lightness);
		return VGuiColour(l, l, l, alpha);
	}
	normaliseHue();
	const double l = lightness / 255.0;
	const double s = saturation / 255.0;
	const double m2 = lightness > 127 ? l + s - l * s : l * (1.0 + s);
	const double m1 = 2.0 * l - m2;
	return VGuiColour(static_cast<uint8_t>(value(m1, m2, hue + 120)),
	                  static_cast<uint8_t>(value(m1, m2, hue)),
	                  static_cast<uint8_t>(value(m1, m2, hue - 120)), alpha);
}

int VGuiHls::value(double m1, double m2, double h) const
{
	if (h > 360.0)
		h -= 360.0;
	else if (h < 0.0)
		h += 360.0;
	double x = m1;
	if (h < 60.0)
		x = m1 + (m2 - m1) * h / 60.0;
	else if (h < 180.0)
		x = m2;
	else if (h < 240.0)
		x = m1 + (m2 - m1) * (240.0 - h) / 60.0;
	return static_cast<int>(std::lrint(255.0 * x));
}
