// Zooms to the rectangle dragged (a click zooms in about the point) and
// stops automatic scaling. It zooms even when Escape cancelled the drag.
#pragma once

#include "vgui/vguigraphcursor.h"

class VGuiZoomInCursor : public VGuiGraphCursor
{
public:
	using VGuiGraphCursor::VGuiGraphCursor;

	void realize(VSTGUI::CDrawContext*) override { realizeRubberBand(); }
	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool) override;
};
