#include "vgui/vguigraphfocus.h"

#include "vgui/vguigraphplot.h"

bool VGuiGraphFocus::canTakeFocus(const VGuiGraphPlot* p)
{
	return p && p->isActive() && p->isFocusable() && p->dataCount() > 0;
}

VGuiGraphPlot* VGuiGraphFocus::currentPlot() const
{
	return static_cast<VGuiGraphPlot*>(plot.current());
}

VGuiGraphPlot* VGuiGraphFocus::reset(VGuiGraphData*& data)
{
	plot.first();
	item = 0;
	if (!canTakeFocus(currentPlot()))
		return next(data);
	return current(data);
}

VGuiGraphPlot* VGuiGraphFocus::current(VGuiGraphData*& data) const
{
	VGuiGraphPlot* p = currentPlot();
	if (!canTakeFocus(p))
	{
		data = nullptr;
		return nullptr;
	}
	data = p->dataItem(item);
	return p;
}

VGuiGraphPlot* VGuiGraphFocus::next(VGuiGraphData*& data)
{
	const VGuiGraphPlot* p = currentPlot();
	if (canTakeFocus(p) && item + 1 < p->dataCount())
		++item;
	else if (stepPlot(true))
		firstData();
	return current(data);
}

VGuiGraphPlot* VGuiGraphFocus::previous(VGuiGraphData*& data)
{
	const VGuiGraphPlot* p = currentPlot();
	if (canTakeFocus(p) && item > 0)
		--item;
	else if (stepPlot(false))
		lastData();
	return current(data);
}

void VGuiGraphFocus::lastData()
{
	const VGuiGraphPlot* p = currentPlot();
	item = p && p->dataCount() > 0 ? p->dataCount() - 1 : 0;
}

bool VGuiGraphFocus::stepPlot(bool forwards)
{
	// One more step than there are plots comes back round to the start.
	for (int steps = plots.count(); steps >= 0; --steps)
	{
		void* reached = forwards ? plot.next() : plot.prev();
		if (!reached)
			reached = forwards ? plot.first() : plot.last();
		if (canTakeFocus(static_cast<VGuiGraphPlot*>(reached)))
			return true;
	}
	return false;
}
