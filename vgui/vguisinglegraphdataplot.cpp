#include "vgui/vguisinglegraphdataplot.h"

VGuiSingleGraphDataPlot::VGuiSingleGraphDataPlot(int identifier, VGuiGraphData* data,
                                                 VGuiGraphPlotProperties* properties)
: VGuiGraphPlot(identifier, properties),
  held(data)
{}

VGuiSingleGraphDataPlot::VGuiSingleGraphDataPlot(const VGuiSingleGraphDataPlot& other)
: VGuiGraphPlot(other),
  held(other.held)
{}

bool VGuiSingleGraphDataPlot::graphData(VGuiGraphData* data, bool rescale)
{
	const bool changed = data != held.get();
	if (!changed && !data)
		return false;
	held.reset(data);
	refresh(rescale);
	return changed;
}

VGuiGraphPoint VGuiSingleGraphDataPlot::maximum() const
{
	return held ? held->maximum() : VGuiGraphPoint();
}

VGuiGraphPoint VGuiSingleGraphDataPlot::minimum() const
{
	return held ? held->minimum() : VGuiGraphPoint();
}

VGuiGraphPoint VGuiSingleGraphDataPlot::minimumPositive(double fallback) const
{
	return held ? held->minimumPositive(fallback) : VGuiGraphPoint(fallback, fallback, fallback);
}

bool VGuiSingleGraphDataPlot::beginRealize(VSTGUI::CDrawContext* context)
{
	if (!context || !owner || !props)
		return false;
	group.deleteAll();
	if (held && held->isValid())
		return true;
	endRealize();
	return false;
}

void VGuiSingleGraphDataPlot::endRealize()
{
	group.findExtent();
	takeGroupExtent();
}
