#include "vgui/vguishelvingfiltersection.h"

#include "osi/text/osinumbertostring.h"

#include <cmath>

double VGuiShelvingFilterSection::magnitude(double f, bool invert) const
{
	const bool onShelf = highShelf ? f > corner : f < corner;
	return onShelf ? std::pow(f / corner, invert ? -slope : slope) : 1.0;
}

void VGuiShelvingFilterSection::description(string_ext<char>& text) const
{
	const OsiNumberToString number;
	text += ",Fo=";
	text += number.format(corner, 3).text();
	text += "Hz,Slope=";
	text += number.format(slope, 3).text();
}
