// An 8-bit RGB colour with alpha, and its conversions to the HSV and HLS
// models from which graphs derive lighter, darker or paler shades.
#pragma once

#include "vgui/vguihls.h"
#include "vgui/vguihsv.h"

#include "vstgui/lib/ccolor.h"

#include <cstdint>

class VGuiColour
{
public:
	constexpr VGuiColour() = default;
	constexpr VGuiColour(uint8_t red, uint8_t green, uint8_t blue, uint8_t alpha = 255)
	: red(red),
	  green(green),
	  blue(blue),
	  alpha(alpha)
	{}
	explicit VGuiColour(const VSTGUI::CColor& c) : VGuiColour(c.red, c.green, c.blue, c.alpha) {}

	VSTGUI::CColor toCColor() const { return VSTGUI::CColor(red, green, blue, alpha); }

	// 'r', 'g' or 'b' selects the component; any other letter does nothing.
	void set(char component, int v);

	VGuiHsv toHSV() const;
	VGuiHls toHLS() const;

	bool operator==(const VGuiColour& c) const
	{
		return red == c.red && green == c.green && blue == c.blue && alpha == c.alpha;
	}
	bool operator!=(const VGuiColour& c) const { return !(*this == c); }

	uint8_t red = 0;
	uint8_t green = 0;
	uint8_t blue = 0;
	uint8_t alpha = 255;

private:
	int largest() const;
	int smallest() const;
};
