// A bevelled border around a rectangle, outside it, in a highlight and a
// shadow colour. Styles: 0 raised, 1 sunken, 2 etched (a groove: sunken
// outside, raised inside), 3 bumped (a ridge: raised outside, sunken inside).
// Each bevel is a six-cornered polygon along two sides of the rectangle.
#pragma once

#include "vgui/vguigfxobject.h"

class VGuiGfxFrameBorder : public VGuiGfxObject
{
public:
	VGuiGfxFrameBorder(const VGuiRect& r, double width, const VGuiColour& highlight,
	                   const VGuiColour& shadow, int style);

	VGuiGfxObject* copy() const override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	void moveBy(const VGuiPoint& d) override;

	// Builds the bevels for r, width and style; the extent becomes r grown by
	// the width. Styles outside 0 to 3 are ignored and change nothing.
	void init(const VGuiRect& r, double width, int style);

	const VGuiColour& highlight() const { return lineColour(); }
	const VGuiColour& shadow() const { return fillColour(); }

private:
	struct Bevel
	{
		VGuiPoint corners[6];
		bool lit;
	};
	// The two bevels of the band between inner and outer, the top-left one lit
	// when raised.
	void addBand(const VGuiRect& inner, const VGuiRect& outer, bool raised);

	Bevel bevels[4];
	int count = 0;
};
