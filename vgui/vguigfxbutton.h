// A push button drawn as a framed face with an optional bitmap on it. Two
// flags follow the pointer: inside (the pointer hovers over it: a lighter
// face) and pressed (held down: a darker face, the bitmap pushed in while
// the pointer stays inside). The frame lies inside the extent, so that
// repainting the extent repaints the whole button.
#pragma once

#include "vgui/vguigfxobject.h"

#include "vstgui/lib/cbitmap.h"

class VGuiGfxButton : public VGuiGfxObject
{
public:
	// The button takes a reference on the bitmap, if any.
	VGuiGfxButton(const VGuiRect& r, const VGuiColour& lineColour, const VGuiColour& faceColour,
	              bool inside, bool pressed, VSTGUI::CBitmap* bitmap = nullptr);

	VGuiGfxObject* copy() const override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	// Applies the event with the hit test at p; when the flags changed, joins
	// the extent into repaint.
	bool state(VGuiGfxState state, const VGuiPoint& p, VGuiRect& repaint) override;

	// Applies the event with the given hit result; true when the flags
	// changed. Values other than the four events change nothing.
	bool transition(VGuiGfxState state, bool hit);

	bool inside() const { return isInside; }
	bool pressed() const { return isPressed; }

private:
	VGuiColour faceColour() const;

	bool isInside;
	bool isPressed;
	VSTGUI::SharedPointer<VSTGUI::CBitmap> bitmap;
};
