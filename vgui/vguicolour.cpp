#include "vgui/vguicolour.h"

#include "vgui/vguihue.h"

#include <algorithm>
#include <cmath>

void VGuiColour::set(char component, int v)
{
	const auto c = static_cast<uint8_t>(v);
	switch (component)
	{
	case 'r':
		red = c;
		break;
	case 'g':
		green = c;
		break;
	case 'b':
		blue = c;
		break;
	default:
		break;
	}
}

int VGuiColour::largest() const
{
	return std::max({red, green, blue});
}

int VGuiColour::smallest() const
{
	return std::min({red, green, blue});
}

VGuiHsv VGuiColour::toHSV() const
{
	const int max = largest();
	const int delta = max - smallest();
	VGuiHsv hsv;
	hsv.value = max;
	if (max == 0)
		return hsv;
	hsv.saturation = static_cast<int>(std::lrint(255.0 * delta / max));
	if (hsv.saturation != 0)
		hsv.hue = VGuiHue::of(red, green, blue, max, delta);
	return hsv;
}

VGuiHls VGuiColour::toHLS() const
{
	const int max = largest();
	const int min = smallest();
	VGuiHls hls;
	if (max == min)
	{
		hls.lightness = max;
		return hls;
	}
	const int sum = max + min;
	hls.lightness = sum / 2;
	// 511, not 510: the light half divides by one more than its span.
	const int d = sum < 256 ? sum : 511 - sum;
	hls.saturation = static_cast<int>(std::lrint(255.0 * (max - min) / d));
	hls.hue = VGuiHue::of(red, green, blue, max, max - min);
	return hls;
}
