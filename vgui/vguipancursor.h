// Moves the ranges with the pointer's drag and stops automatic scaling;
// Escape cancels. A line from the start to the pointer shows the move.
#pragma once

#include "vgui/vguigraphcursor.h"

class VGuiPanCursor : public VGuiGraphCursor
{
public:
	using VGuiGraphCursor::VGuiGraphCursor;

	void realize(VSTGUI::CDrawContext*) override { realizeDragLine(); }
	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled) override;
};
