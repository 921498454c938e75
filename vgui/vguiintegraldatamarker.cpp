#include "vgui/vguiintegraldatamarker.h"

#include "vgui/vguidataintegral.h"
#include "vgui/vguigraph.h"
#include "vgui/vguiintegralcursormsg.h"

void VGuiIntegralDataMarker::realize(VSTGUI::CDrawContext* context)
{
	if (!beginRealize())
		return;
	const VGuiIntegralCursorMsg message(owner, "", precision(), dataId(), dataPoint(startIndex).x,
	                                    dataPoint(dataIndex).x, area());
	realizeMarkerBracket(context, startIndex, dataIndex, message.text());
	endRealize();
}

double VGuiIntegralDataMarker::area() const
{
	if (!data)
		return 0.0;
	return VGuiDataIntegral(*data, startIndex, dataIndex, dataPoint(startIndex).x,
	                        dataPoint(dataIndex).x, owner->integralCursorMultiplier());
}
