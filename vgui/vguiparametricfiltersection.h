// A second-order peaking section: gain G at the centre frequency, 1 far from
// it, its width set by Q (0: G at every frequency).
#pragma once

#include "vgui/vguigenericfiltersection.h"

class VGuiParametricFilterSection : public VGuiGenericFilterSection
{
public:
	VGuiParametricFilterSection(double q, double centre, double gain)
	: q(q),
	  centre(centre),
	  gain(gain)
	{}

	double magnitude(double f, bool invert) const override
	{
		return magnitude(f, centre, q, invert ? 1.0 / gain : gain);
	}
	static double magnitude(double f, double centre, double q, double gain);
	// ",Q=…,Fo=…Hz,G=…dB".
	void description(string_ext<char>& text) const override;

	double q;
	double centre;
	double gain;
};
