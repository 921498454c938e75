#include "vgui/vguigraphplot.h"

#include "vgui/vguigraph.h"

VGuiGraphPlot::VGuiGraphPlot(int identifier, VGuiGraphPlotProperties* properties)
: VGuiGraphElement(identifier),
  props(properties ? VGuiReference<VGuiGraphPlotProperties>(properties)
                   : VGuiReference<VGuiGraphPlotProperties>::adopt(new VGuiGraphPlotProperties))
{}

VGuiGraphPlot::VGuiGraphPlot(const VGuiGraphPlot& other)
: VGuiGraphElement(other.identifier()),
  props(other.props),
  focusable(other.focusable)
{}

void VGuiGraphPlot::properties(VGuiGraphPlotProperties* p)
{
	if (!p)
		return;
	props.reset(p);
	refresh();
}

void VGuiGraphPlot::refresh(bool rescale)
{
	if (!owner)
		return;
	owner->beginUpdate();
	owner->realize(this);
	owner->replacePlot(this, this, rescale);
	owner->endUpdate();
}

bool VGuiGraphPlot::shouldInvalidate(VGuiGraphChanges changes) const
{
	return (changes & (VGuiGraphXRangeChanged | VGuiGraphYRangeChanged | VGuiGraphAxisReplaced |
	                   VGuiGraphExtentChanged | VGuiGraphPropertiesChanged)) != 0;
}
