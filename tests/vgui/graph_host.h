// Test doubles for graphs: a view that records what the graph asks it to
// repaint, plots with fixed extremes, and probes that log the events and
// changes a graph hands them.
#pragma once

#include "vgui/vgui2dgraph.h"
#include "vgui/vguigraphcursor.h"
#include "vgui/vguigraphdata.h"
#include "vgui/vguigraphmarker.h"
#include "vgui/vguigraphplot.h"
#include "vgui/vguilinearaxis.h"

#include "vstgui/lib/cview.h"
#include "vstgui/lib/vstguiinit.h"

#include <string>
#include <type_traits>
#include <vector>

namespace velora_test {

template <typename T> VGuiReference<T> made(T* object)
{
	return VGuiReference<T>::adopt(object);
}

class RecordingView : public VSTGUI::CView
{
public:
	RecordingView() : VSTGUI::CView(VSTGUI::CRect(0, 0, 400, 300))
	{
		static const bool initialised = (VSTGUI::init(nullptr), true);
		(void)initialised;
	}

	void invalidRect(const VSTGUI::CRect& r) override { invalidated.push_back(VGuiRect(r)); }
	void setDirty(bool dirty) override { cleaned += !dirty; }

	// Hosts the graph, opened unless told otherwise, and forgets the first
	// layout's repaint.
	void show(VGuiGraph* graph, bool open = true)
	{
		graph->attached(true);
		if (open)
			graph->open();
		graph->extent(VGuiRect(getViewSize()), this);
		invalidated.clear();
	}

	std::vector<VGuiRect> invalidated;
	int cleaned = 0;
};

// A 2-D graph with linear x and y axes.
inline VGuiReference<VGuiGraph> linearGraph()
{
	auto x = made(new VGuiLinearAxis(true));
	auto y = made(new VGuiLinearAxis(false));
	return made<VGuiGraph>(new VGui2dGraph(nullptr, x.get(), y.get(), nullptr));
}

// Markers copy themselves; the probes are never copied.
template <typename Base, bool = std::is_base_of_v<VGuiGraphMarker, Base>> struct Copyable : Base
{};
template <typename Base> struct Copyable<Base, true> : Base
{
	VGuiGraphMarker* copy() const override { return nullptr; }
};

// Logs "name" for each event (with "(handled)" once an earlier receiver has
// dealt with the pointer) and lets it pass unless told to stop; counts its
// layouts and records the changes that each update asks it about.
template <typename Base> class Probe : public Copyable<Base>
{
public:
	Probe(std::string name, std::string* log, bool passOn = true)
	: name(std::move(name)),
	  log(log),
	  passOn(passOn)
	{}

	void draw(VSTGUI::CDrawContext*, const VGuiRect&) const override {}
	void realize(VSTGUI::CDrawContext*) override { ++realized; }
	bool onMouseDownEvent(VSTGUI::CPoint&, const VSTGUI::CButtonState&, bool& handled,
	                      VSTGUI::CView*) override
	{
		*log += name + (handled ? " " : "(handled) ");
		handled = false;
		return passOn;
	}
	bool shouldInvalidate(VGuiGraphChanges c) const override
	{
		seen.push_back(c);
		return false;
	}

	std::string name;
	std::string* log;
	bool passOn;
	int realized = 0;
	mutable std::vector<VGuiGraphChanges> seen;
};

// A plot whose data span a fixed box; its one data item is empty.
class FixedPlot : public VGuiGraphPlot
{
public:
	FixedPlot(const VGuiGraphPoint& max, const VGuiGraphPoint& min, bool focusable = true)
	: VGuiGraphPlot(0),
	  max(max),
	  min(min),
	  data(made(new VGuiGraphData(0, 0)))
	{
		setFocusable(focusable);
	}

	void draw(VSTGUI::CDrawContext*, const VGuiRect&) const override {}
	void realize(VSTGUI::CDrawContext*) override {}
	VGuiGraphPoint maximum() const override { return max; }
	VGuiGraphPoint minimum() const override { return min; }
	VGuiGraphPoint minimumPositive(double fallback) const override
	{
		VGuiGraphPoint p(fallback, fallback, fallback);
		p.minimumPositiveOf(max, min);
		return p;
	}
	int dataCount() const override { return 1; }
	VGuiGraphData* dataItem(int i) const override { return i == 0 ? data.get() : nullptr; }

	VGuiGraphPoint max;
	VGuiGraphPoint min;
	VGuiReference<VGuiGraphData> data;
};

} // namespace velora_test
