// Hue arithmetic shared by the two colour models, HSV and HLS.
#pragma once

class VGuiHue
{
public:
	// The hue of greys, which have none.
	static constexpr int Undefined = 4096;

	// The hue in degrees of the colour whose largest component is max and
	// whose components span delta > 0, to the nearest degree (0 to 360).
	static int of(int red, int green, int blue, int max, int delta);
	// A negative hue brought into 0 to 359 by whole turns; others unchanged.
	static int wrapNegative(int hue);
};
