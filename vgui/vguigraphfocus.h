// The keyboard focus of a graph: a place in its plot list and a data item
// of that plot. Stepping walks the data items of a plot and then moves on to
// the next (or previous) plot that can take the focus, round the list; the
// place survives the removal of its plot.
#pragma once

#include "osi/containers/colist.h"

class VGuiGraphData;
class VGuiGraphPlot;

class VGuiGraphFocus
{
public:
	explicit VGuiGraphFocus(const OsiList& plots) : plots(plots), plot(plots) {}

	// Each moves the focus and returns the focused plot, with its data item
	// in data; null (and null data) when no plot can take the focus.
	VGuiGraphPlot* reset(VGuiGraphData*& data);
	VGuiGraphPlot* current(VGuiGraphData*& data) const;
	VGuiGraphPlot* next(VGuiGraphData*& data);
	VGuiGraphPlot* previous(VGuiGraphData*& data);

	// The first and the last data item of the current plot.
	void firstData() { item = 0; }
	void lastData();

	// Active and focusable, with data.
	static bool canTakeFocus(const VGuiGraphPlot* p);

private:
	VGuiGraphPlot* currentPlot() const;
	// Steps to the next (or previous) plot that can take the focus, round the
	// list once at most; false when there is none.
	bool stepPlot(bool forwards);

	const OsiList& plots;
	mutable OsiListIter plot;
	int item = 0;
};
