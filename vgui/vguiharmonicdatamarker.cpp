#include "vgui/vguiharmonicdatamarker.h"

#include "vgui/vguidatacursormsg.h"
#include "vgui/vguigraph.h"
#include "vgui/vguiharmonicdatacursor.h"
#include "vgui/vguiharmonicsearch.h"

#include <cmath>

void VGuiHarmonicDataMarker::realize(VSTGUI::CDrawContext* context)
{
	if (!beginRealize())
		return;
	const VGuiPoint p = screenPoint(dataIndex);
	const VGuiDataCursorMsg message(owner, "", precision(), point, dataId());
	const double offset = 12.0;
	realizeMarkerText(context, VGuiPoint(p.x + offset, p.y - 2.0 * offset), message.text(),
	                  props->font, VSTGUI::kLeftText);
	realizeMarkerTie(context, p, VGuiPoint(hit.left, hit.bottom));
	realizeMarkerCrosses(context, point);
	endRealize();
}

void VGuiHarmonicDataMarker::realizeMarkerCrosses(VSTGUI::CDrawContext* context,
                                                  const VGuiGraphPoint& fundamental)
{
	VGuiGraphPoint harmonics[VGuiHarmonicDataCursor::MaximumHarmonics];
	harmonics[0] = VGuiGraphPoint(std::fabs(fundamental.x), fundamental.y, 0.0);
	const int found = data ? VGuiHarmonicSearch(*data, dataIndex, harmonics,
	                                            VGuiHarmonicDataCursor::MaximumHarmonics)
	                       : 1;
	for (int k = 0; k < found; ++k)
	{
		VGuiPoint p;
		owner->map(p, harmonics[k], true);
		realizeMarkerCross(context, p);
	}
}
