// Draws a peaking filter section on a spectrum: the drag's start is the
// centre frequency and the level there, the pointer's height sets the gain
// and its distance along x the bandwidth (Q). While held, "M" gives the
// largest Q (15), "0" a flat gain (Q 0) and "6" keeps the last Q. The graph
// control shows the adjusted data while dragging and receives the section at
// the end.
#pragma once

#include "vgui/vguiconstraineddatacursor.h"
#include "vgui/vguireference.h"

class VGuiGraphControl;
class VGuiParametricFilterSection;

class VGuiDataGainCursor : public VGuiConstrainedDataCursor
{
public:
	static constexpr double MaximumQ = 15.0;

	VGuiDataGainCursor(VGuiGraph* graph, VGuiGraphControl* control);

	void realize(VSTGUI::CDrawContext* context) override;
	bool onKeyDownEvent(VstKeyCode& key, VSTGUI::CView* view) override;
	bool onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view) override;
	void beginAction(const VGuiPoint& p) override;
	void moveAction(const VGuiPoint& p) override;
	void endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled) override;

	// The section drawn from a to b; remembers its Q as the last one.
	void filterParameters(const VGuiPoint& a, const VGuiPoint& b, double& centre, double& gain,
	                      double& q);

	// The section's description while dragging.
	string_ext<char> text;

private:
	// The section of a drag from a to b, through filterParameters.
	VGuiReference<VGuiParametricFilterSection> section(const VGuiPoint& a, const VGuiPoint& b);
	// Sets or clears the flag of a Q key; false for other keys.
	bool qKey(const VstKeyCode& key, bool down);

	VGuiGraphControl* control;
	bool holdQ = false;
	bool zeroQ = false;
	bool maximumQ = false;
	double lastQ = MaximumQ;
};
