#include "vgui/vguiparametricfiltersection.h"

#include "osi/text/osinumbertostring.h"

#include <cmath>

double VGuiParametricFilterSection::magnitude(double f, double centre, double q, double gain)
{
	if (q == 0.0)
		return gain;
	const double r = f / centre;
	// The zeros' Q over the poles' Q is the gain: a boost narrows the poles'
	// bandwidth less than a cut.
	const double q1 = gain > 1.0 ? q / gain : q;
	const double q2 = gain > 1.0 ? q : q * gain;
	const double real = 1.0 - r * r;
	return std::hypot(real, r / q1) / std::hypot(real, r / q2);
}

void VGuiParametricFilterSection::description(string_ext<char>& text) const
{
	const OsiNumberToString number;
	text += ",Q=";
	text += number.format(q, 3).text();
	text += ",Fo=";
	text += number.format(centre, 3).text();
	text += "Hz,G=";
	text += number.format(20.0 * std::log10(gain), 3).text();
	text += "dB";
}
