// A colour in the hue, saturation, value model: hue in degrees (or undefined
// for greys), saturation and value 0 to 255.
#pragma once

#include "vgui/vguihue.h"

class VGuiColour;

class VGuiHsv
{
public:
	constexpr VGuiHsv() = default;
	constexpr VGuiHsv(int hue, int saturation, int value)
	: hue(hue),
	  saturation(saturation),
	  value(value)
	{}

	// 'h', 's' or 'v' selects the component; any other letter does nothing.
	void set(char component, int v);
	// Sets the hue only when it is undefined; true when it did.
	bool forceDefinedHue(int h);
	// The RGB colour with the given alpha. A defined hue of a coloured value
	// is first normalised in place to 0 to 359.
	VGuiColour toRGB(unsigned char alpha);

	bool operator==(const VGuiHsv& c) const
	{
		return hue == c.hue && saturation == c.saturation && value == c.value;
	}

	int hue = VGuiHue::Undefined;
	int saturation = 0;
	int value = 0;

private:
	void normaliseHue();
};
