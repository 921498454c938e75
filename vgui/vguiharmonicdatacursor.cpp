#include "vgui/vguiharmonicdatacursor.h"

#include "vgui/vguigraph.h"
#include "vgui/vguiharmonicsearch.h"

#include <cmath>

void VGuiHarmonicDataCursor::notifyConstrainedDataCursorMsg(VGuiGraphPoint& p, VGuiGraphPoint&,
                                                            VGuiGraphPoint&, int, int index,
                                                            bool changed)
{
	const VGuiGraphData& d = *data();
	// The interpolated point inside the data, the data point at its ends.
	const VGuiGraphPoint fundamental = index > 0 && index < d.count() - 1 ? p : d[index];
	harmonics[0] = VGuiGraphPoint(std::fabs(fundamental.x), fundamental.y, fundamental.z);
	found = VGuiHarmonicSearch(d, index, harmonics, MaximumHarmonics);
	if (!changed)
		return;
	notifySelected();
	if (shown)
		refresh();
}

int VGuiHarmonicDataCursor::entryOfKey(const VstKeyCode& key)
{
	if (key.character >= '2' && key.character <= '9')
		return key.character - '1';
	return key.character == '0' ? MaximumHarmonics - 1 : -1;
}

void VGuiHarmonicDataCursor::notifySelected() const
{
	if (chosen < found)
		notifyDataCursorMsg(harmonics[chosen], dataId());
}

bool VGuiHarmonicDataCursor::onKeyDownEvent(VstKeyCode& key, VSTGUI::CView*)
{
	const int entry = entryOfKey(key);
	if (entry >= 0)
	{
		chosen = entry;
		notifySelected();
	}
	return true;
}

bool VGuiHarmonicDataCursor::onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view)
{
	if (entryOfKey(key) < 0)
		return VGuiDataCursorBase::onKeyUpEvent(key, view);
	chosen = 0;
	notifySelected();
	return true;
}

void VGuiHarmonicDataCursor::realize(VSTGUI::CDrawContext*)
{
	group.deleteAll();
	// Mapped here, so that the ticks follow changes of the axes.
	for (int k = 0; shown && dragging && owner && k < found; ++k)
	{
		VGuiPoint p;
		owner->map(p, harmonics[k], true);
		realizeCross(p);
	}
	group.findExtent();
	takeGroupExtent();
}
