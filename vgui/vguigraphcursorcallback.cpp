#include "vgui/vguigraphcursorcallback.h"

#include "vgui/vguidatacursormsg.h"
#include "vgui/vguigraph.h"

void VGuiGraphCursorCallback::send(std::unique_ptr<VGuiGraphCursorMsg> message) const
{
	listeners.notify(message.get());
}

void VGuiGraphCursorCallback::notifyDataCursorMsg(VGuiGraph* graph, int precision,
                                                  const VGuiGraphPoint& p, int dataId) const
{
	send(std::make_unique<VGuiDataCursorMsg>(graph, label, precision, p, dataId));
}

void VGuiGraphCursorCallback::notifyDataCursorMsg(VGuiGraph* graph, int precision,
                                                  const VGuiPoint& p, int dataId) const
{
	if (!graph)
		return;
	VGuiGraphPoint g;
	graph->inverseMap(g, p);
	notifyDataCursorMsg(graph, precision, g, dataId);
}
