// A shelf: above (high shelf) or below (low shelf) the corner frequency the
// gain follows (f / corner)^slope, on the other side it is 1.
#pragma once

#include "vgui/vguigenericfiltersection.h"

class VGuiShelvingFilterSection : public VGuiGenericFilterSection
{
public:
	VGuiShelvingFilterSection(double corner, double slope, bool highShelf)
	: corner(corner),
	  slope(slope),
	  highShelf(highShelf)
	{}

	double magnitude(double f, bool invert) const override;
	// ",Fo=…Hz,Slope=…".
	void description(string_ext<char>& text) const override;

	double corner;
	double slope;
	bool highShelf;
};
