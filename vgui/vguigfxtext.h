// A line of text in a font, anchored at a position: the top-left, top-centre
// or top-right corner of the text's box, by its alignment. The text may be
// turned about the anchor by an angle in degrees, counter-clockwise as seen
// on the screen (90 reads upwards, as a vertical axis title does). The box,
// grown by the margin, is filled with the background colour and, in the
// variant with a line style, framed in the text colour.
#pragma once

#include "vgui/vguifont.h"
#include "vgui/vguigfxobject.h"

#include "vstgui/lib/cdrawdefs.h"
#include "vstgui/lib/cgraphicstransform.h"

#include <string>

class VGuiGfxText : public VGuiGfxObject
{
public:
	VGuiGfxText(const char* text, const VGuiFont& font, const VGuiPoint& position,
	            const VGuiColour& textColour, const VGuiColour& background,
	            VSTGUI::CHoriTxtAlign align);
	VGuiGfxText(const char* text, const VGuiFont& font, const VGuiPoint& position,
	            const VGuiColour& textColour, const VGuiColour& background,
	            VSTGUI::CHoriTxtAlign align, double angle);
	VGuiGfxText(const char* text, const VGuiFont& font, const VGuiPoint& position,
	            const VGuiColour& textColour, const VGuiColour& background,
	            VSTGUI::CHoriTxtAlign align, double angle, const VSTGUI::CLineStyle& frameStyle);

	VGuiGfxObject* copy() const override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	// The anchor.
	VGuiPoint origin() const override;
	// Inside the turned box grown by the margin and half the frame's width
	// (right and bottom edges, as the text reads, outside).
	bool isIn(const VGuiPoint& p) const override;
	using VGuiGfxObject::isIn;
	void moveBy(const VGuiPoint& d) override;

	// Measures the text with the context's font metrics: the extent becomes
	// the upright rectangle around the turned box. Until then the extent is
	// empty.
	void findExtent(VSTGUI::CDrawContext* context);
	// Replaces the text and measures it again.
	void text(const char* s, VSTGUI::CDrawContext* context);
	const char* text() const { return str.c_str(); }
	double angle() const { return degrees; }

private:
	// The text's box in its own upright frame, whose origin is the anchor.
	VGuiRect box(VSTGUI::CDrawContext* context) const;
	double ascent() const;
	double descent() const;
	// From the text's own frame to the screen.
	VSTGUI::CGraphicsTransform placement() const;

	std::string str;
	VGuiFont font;
	VGuiPoint position;
	VSTGUI::CHoriTxtAlign align;
	double degrees;
	VGuiRect measured;
};
