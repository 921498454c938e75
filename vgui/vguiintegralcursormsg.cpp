#include "vgui/vguiintegralcursormsg.h"

#include "vgui/guiintegralcursormultiplier.h"
#include "vgui/vguigraph.h"
#include "vgui/vguigraphaxis.h"

VGuiIntegralCursorMsg::VGuiIntegralCursorMsg(VGuiGraph* graph, const string_ext<char>& label,
                                             int precision, int dataId, double x1, double x2,
                                             double sum)
: VGuiGraphCursorMsg(graph, label, precision, dataId),
  x1(x1),
  x2(x2),
  sum(sum)
{
	if (graph && graph->yAxis())
		sumFormat = graph->yAxis()->createValueFormat();
	if (sumFormat && graph->integralCursorMultiplier())
		sumFormat->multiplyBy(1.0, graph->integralCursorMultiplier()->units);
}
