#include "vgui/vguiscatterplot.h"

#include "vgui/vguigraph.h"

VGuiScatterPlot::VGuiScatterPlot(int identifier, VGuiGraphData* data,
                                 VGuiGenericScatterPlotMarker* marker,
                                 VGuiGraphPlotProperties* properties)
: VGuiSingleGraphDataPlot(identifier, data, properties),
  marker(marker)
{}

void VGuiScatterPlot::plotMarker(VGuiGenericScatterPlotMarker* m)
{
	marker.reset(m);
	refresh();
}

void VGuiScatterPlot::realize(VSTGUI::CDrawContext* context)
{
	if (!marker || !beginRealize(context))
		return;
	const VGuiGraphData& data = *held;
	for (int i = 0; i < data.count(); ++i)
	{
		VGuiPoint at;
		if (owner->map(at, data[i], true))
			marker->draw(group, props->lineColour, props->fillColour, props->lineStyle,
			             props->lineWidth, at);
	}
	endRealize();
}

void VGuiScatterPlot::draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	group.draw(context, update);
}
