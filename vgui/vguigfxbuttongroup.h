// Buttons that answer the pointer together, as one control: every button
// takes the group's own hit test at the pointer (over the group's extent),
// not its own.
#pragma once

#include "vgui/vguigfxgroup.h"

class VGuiGfxButtonGroup : public VGuiGfxGroup
{
public:
	VGuiGfxButtonGroup() = default;

	VGuiGfxObject* copy() const override;
	// Applies the event with the group's hit test, taken once, to every
	// button; each button that changed joins its extent into repaint. Objects
	// that are not buttons have no state.
	bool state(VGuiGfxState state, const VGuiPoint& p, VGuiRect& repaint) override;
};
