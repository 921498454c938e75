// A colour in the hue, lightness, saturation model: hue in degrees (or
// undefined for greys), lightness and saturation 0 to 255.
#pragma once

#include "vgui/vguihue.h"

class VGuiColour;

class VGuiHls
{
public:
	constexpr VGuiHls() = default;
	constexpr VGuiHls(int hue, int lightness, int saturation)
	: hue(hue),
	  lightness(lightness),
	  saturation(saturation)
	{}

	// 'h', 'l' or 's' selects the component; any other letter does nothing.
	void set(char component, int v);
	// The RGB colour with the given alpha. A defined hue of a coloured value
	// is first normalised in place to 0 to 359.
	VGuiColour toRGB(unsigned char alpha);
	// One RGB component, 0 to 255, at the hue h (in degrees, off by at most
	// one turn) between the bounds m1 and m2 of the colour's components.
	int value(double m1, double m2, double h) const;

	bool operator==(const VGuiHls& c) const
	{
		return hue == c.hue && lightness == c.lightness && saturation == c.saturation;
	}

	int hue = VGuiHue::Undefined;
	int lightness = 0;
	int saturation = 0;

private:
	void normaliseHue();
};
