#include "vgui/vguigfxbuttongroup.h"

#include "vgui/vguigfxbutton.h"

VGuiGfxObject* VGuiGfxButtonGroup::copy() const
{
	return new VGuiGfxButtonGroup(*this);
}

bool VGuiGfxButtonGroup::state(VGuiGfxState state, const VGuiPoint& p, VGuiRect& repaint)
{
	const bool hit = isIn(p);
	bool changed = false;
	list().forEach([&](VGuiGfxObject* o) {
		auto* button = dynamic_cast<VGuiGfxButton*>(o);
		if (button && button->transition(state, hit))
		{
			repaint = repaint.join(button->extent());
			changed = true;
		}
	});
	return changed;
}
