// Draws a shelving section on a spectrum: the drag's start is the corner
// frequency, the pointer's height over the start's sets the slope (limited
// to 9 either way). While dragging it draws the shelf: level at the corner's
// height on the side that the section leaves alone, tilted to the pointer's
// height on the side that it shelves, with end ticks and a cross on the
// corner.
// The graph control shows the adjusted data while dragging and receives the
// section at the end.
#pragma once

#include "vgui/vguiconstraineddatacursor.h"
#include "vgui/vguireference.h"

class VGuiGraphControl;
class VGuiShelvingFilterSection;

class VGuiDataShelvingCursor : public VGuiConstrainedDataCursor
{
public:
	static constexpr double MaximumSlope = 9.0;

	VGuiDataShelvingCursor(VGuiGraph* graph, VGuiGraphControl* control, bool highShelf);

	void realize(VSTGUI::CDrawContext* context) override;
	void beginAction(const VGuiPoint& p) override;
	void moveAction(const VGuiPoint& p) override;
	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled) override;

	// The section drawn from a to b.
	void filterParameters(const VGuiPoint& a, const VGuiPoint& b, double& corner, double& slope);

private:
	// The section of a drag from a to b, through filterParameters.
	VGuiReference<VGuiShelvingFilterSection> section(const VGuiPoint& a, const VGuiPoint& b);

	VGuiGraphControl* control;
	bool highShelf;
};
