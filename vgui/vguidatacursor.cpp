#include "vgui/vguidatacursor.h"

#include "vgui/vguigraph.h"

VGuiDataCursor::VGuiDataCursor(VGuiGraph* graph, bool interpolate, bool crossHairs)
: VGuiDataCursorBase(graph, interpolate),
  crossHairs(crossHairs)
{}

void VGuiDataCursor::notifyConstrainedDataCursorMsg(VGuiGraphPoint& p, VGuiGraphPoint&,
                                                    VGuiGraphPoint&, int id, int, bool changed)
{
	if (!changed)
		return;
	notifyDataCursorMsg(p, id);
	if (shown)
		refresh();
}

void VGuiDataCursor::realize(VSTGUI::CDrawContext*)
{
	group.deleteAll();
	if (shown && dragging && crossHairs && owner)
		realizeCrossHairs(snapped);
	group.findExtent();
	takeGroupExtent();
}

void VGuiDataCursor::realizeCrossHairs(const VGuiPoint& p)
{
	const VGuiRect& area = owner->plotArea();
	if (p.x < area.left || p.x > area.right || p.y < area.top || p.y > area.bottom)
		return;
	const VGuiPoint across[2] = {{area.left, p.y}, {area.right, p.y}};
	const VGuiPoint down[2] = {{p.x, area.top}, {p.x, area.bottom}};
	for (const VGuiPoint* line : {across, down})
		appendCursorLine(line, 2);
}
