#include "vgui/vguiintegraldatacursor.h"

#include "vgui/guiintegralcursormultiplier.h"
#include "vgui/vguigraph.h"
#include "vgui/vguiintegralcursormsg.h"

#include <algorithm>
#include <cmath>
#include <memory>

double VGuiIntegralDataCursor::integral(int i1, int i2, double x1, double x2) const
{
	const VGuiGraphData& d = *data();
	double sum = 0.0;
	for (int i = std::min(i1, i2); i <= std::max(i1, i2); ++i)
		sum += d[i].y;
	const GuiIntegralCursorMultiplier* multiplier = owner->integralCursorMultiplier();
	const double spacing =
	    multiplier ? multiplier->factor : std::fabs(x2 - x1) / (std::abs(i2 - i1) + 1);
	return spacing * sum;
}

void VGuiIntegralDataCursor::notifyConstrainedDataCursorMsg(VGuiGraphPoint& p,
                                                            VGuiGraphPoint& startPoint,
                                                            VGuiGraphPoint& third, int id,
                                                            int index, bool changed)
{
	VGuiDataCursor::notifyConstrainedDataCursorMsg(p, startPoint, third, id, index, changed);
	if (!dragging || !changed || !data())
		return;
	measurementMessages.send(std::make_unique<VGuiIntegralCursorMsg>(
	    owner, measurementMessages.label, precision(), id, startPoint.x, p.x,
	    integral(startIndex(), index, startPoint.x, p.x)));
}
