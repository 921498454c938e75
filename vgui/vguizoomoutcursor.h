// Shrinks the plot area's ranges into the dragged rectangle (a click zooms
// out about the point) and stops automatic scaling; Escape cancels.
#pragma once

#include "vgui/vguigraphcursor.h"

class VGuiZoomOutCursor : public VGuiGraphCursor
{
public:
	using VGuiGraphCursor::VGuiGraphCursor;

	void realize(VSTGUI::CDrawContext*) override { realizeRubberBand(); }
	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled) override;
};
