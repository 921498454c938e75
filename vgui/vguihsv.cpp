#include "vgui/vguihsv.h"

#include "vgui/vguicolour.h"

#include <cmath>

namespace {

uint8_t nearest(double v)
{
	return static_cast<uint8_t>(std::lrint(v));
}

} // namespace

void VGuiHsv::set(char component, int v)
{
	switch (component)
	{
	case 'h':
		hue = v;
		break;
	case 's':
		saturation = v;
		break;
	case 'v':
		value = v;
		break;
	default:
		break;
	}
}

bool VGuiHsv::forceDefinedHue(int h)
{
	if (hue != VGuiHue::Undefined)
		return false;
	hue = h;
	return true;
}

void VGuiHsv::normaliseHue()
{
	// 360 itself survives the first step and becomes 0 in the last.
	if (hue >= 361)
		hue = (hue - 361) % 360 + 1;
	hue = VGuiHue::wrapNegative(hue);
	if (hue == 360)
		hue = 0;
}

VGuiColour VGuiHsv::toRGB(unsigned char alpha)
{
	const auto v = static_cast<uint8_t>(value);
	if (hue == VGuiHue::Undefined || saturation == 0)
		return VGuiColour(v, v, v, alpha);
	normaliseHue();
	const double sixth = hue / 60.0;
	const int i = static_cast<int>(std::floor(sixth));
	const double f = sixth - i;
	const double s = saturation / 255.0;
	const double V = value;
	const uint8_t p = nearest((1.0 - s) * V);
	const uint8_t q = nearest((1.0 - s * f) * V);
	const uint8_t t = nearest((1.0 - (1.0 - f) * s) * V);
	switch (i)
	{
	case 0:
		return VGuiColour(v, t, p, alpha);
	case 1:
		return VGuiColour(q, v, p, alpha);
	case 2:
		return VGuiColour(p, v, t, alpha);
	case 3:
		return VGuiColour(p, q, v, alpha);
	case 4:
		return VGuiColour(t, p, v, alpha);
	default:
		return VGuiColour(v, p, q, alpha);
	}
}
