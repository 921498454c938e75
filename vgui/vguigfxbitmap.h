// A VSTGUI bitmap drawn at its natural size with its top-left corner at a
// position. The colour's alpha is the bitmap's opacity.
#pragma once

#include "vgui/vguigfxobject.h"

#include "vstgui/lib/cbitmap.h"

class VGuiGfxBitmap : public VGuiGfxObject
{
public:
	// Takes a reference on the bitmap; a null bitmap draws nothing.
	VGuiGfxBitmap(VSTGUI::CBitmap* bitmap, const VGuiPoint& position, const VGuiColour& colour);

	VGuiGfxObject* copy() const override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;

private:
	VSTGUI::SharedPointer<VSTGUI::CBitmap> bitmap;
};
