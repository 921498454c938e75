// Reads a fundamental on the focused data and finds its harmonics: the data
// points nearest to 2, 3, ... times the fundamental's |x|, walking away from
// it, up to 10 entries (the fundamental first) or the end of the data. While
// a digit key is held the read-out shows harmonic 2 to 9 (keys "2" to "9")
// or 10 (key "0"); otherwise the fundamental. Ticks mark the harmonics.
#pragma once

#include "vgui/vguidatacursorbase.h"

class VGuiHarmonicDataCursor : public VGuiDataCursorBase
{
public:
	static constexpr int MaximumHarmonics = 10;

	using VGuiDataCursorBase::VGuiDataCursorBase;

	void realize(VSTGUI::CDrawContext* context) override;
	bool onKeyDownEvent(VstKeyCode& key, VSTGUI::CView* view) override;
	bool onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view) override;
	void notifyConstrainedDataCursorMsg(VGuiGraphPoint& point, VGuiGraphPoint& start,
	                                    VGuiGraphPoint& third, int dataId, int index,
	                                    bool changed) override;

	int harmonicCount() const { return found; }
	const VGuiGraphPoint& harmonic(int i) const { return harmonics[i]; }
	int selected() const { return chosen; }

private:
	// The entry a digit key selects; -1 for other keys.
	static int entryOfKey(const VstKeyCode& key);
	void notifySelected() const;

	VGuiGraphPoint harmonics[MaximumHarmonics];
	int found = 0;
	int chosen = 0;
};
