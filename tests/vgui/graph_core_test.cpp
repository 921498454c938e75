// The graph's updates, event dispatch, focus and ranges, in a view recording its repaints.
#include "graph_host.h"

#include "vgui/vguigraphaxis.h"
#include "vgui/vguilogaxis.h"

#include <gtest/gtest.h>

#include <limits>

namespace velora_test {
namespace {

using Element = Probe<VGuiGraphElement>;

TEST(VGuiGraph, NestedUpdatesRepaintTheJoinedRectangleOnce)
{
	RecordingView view;
	auto graph = linearGraph();
	view.show(graph.get());
	std::string log;
	auto probe = made(new Element("e", &log));
	graph->addElement(probe.get());
	probe->realized = 0;
	view.invalidated.clear();

	graph->beginUpdate();
	graph->invalidateExtent({10, 10, 20, 20});
	graph->realize(probe.get());
	graph->beginUpdate();
	graph->invalidateExtent({30.5, 5.2, 40.4, 12});
	graph->realize(probe.get());
	graph->endUpdate();
	EXPECT_TRUE(view.invalidated.empty());
	graph->endUpdate();

	ASSERT_EQ(view.invalidated.size(), 1u);
	// Widened by a pixel, rounded outwards.
	EXPECT_EQ(view.invalidated[0], VGuiRect(9, 4, 42, 21));
	EXPECT_EQ(probe->realized, 1);

	// Nothing to repaint: the view hears that instead.
	const int cleaned = view.cleaned;
	graph->beginUpdate();
	graph->endUpdate();
	EXPECT_EQ(view.cleaned, cleaned + 1);
	EXPECT_EQ(view.invalidated.size(), 1u);
}

TEST(VGuiGraph, AClosedGraphNeitherLaysOutNorRepaints)
{
	RecordingView view;
	auto graph = linearGraph();
	view.show(graph.get(), false);
	std::string log;
	auto probe = made(new Element("e", &log));
	graph->addElement(probe.get());

	graph->beginUpdate();
	graph->invalidateExtent({10, 10, 20, 20});
	graph->realize(probe.get());
	EXPECT_TRUE(graph->open());
	EXPECT_FALSE(graph->open());
	// The update begun while closed did not count: this end does nothing.
	graph->endUpdate();
	EXPECT_TRUE(view.invalidated.empty());
	EXPECT_EQ(probe->realized, 0);

	graph->beginUpdate();
	graph->endUpdate();
	EXPECT_EQ(view.invalidated.size(), 1u);
}

struct DispatchCase
{
	const char* elements; // '1' passes the event on, '0' keeps it
	const char* markers;
	bool cursor;
	const char* log;
	bool result;
};

const DispatchCase kDispatchCases[] = {
    {"11", "1", true, "e0 e1(handled) m0(handled) c(handled) ", true},
    {"1", "", true, "e0 c(handled) ", true},
    {"10", "1", true, "e0 e1(handled) ", false},
    {"1", "0", true, "e0 m0(handled) ", false},
    {"", "", false, "", true},
};

TEST(VGuiGraph, HandsEventsToElementsThenMarkersThenTheCursorWhileTheyPassThemOn)
{
	for (const DispatchCase& c : kDispatchCases)
	{
		auto graph = linearGraph();
		std::string log;
		for (int i = 0; c.elements[i]; ++i)
			graph->addElement(
			    made(new Element("e" + std::to_string(i), &log, c.elements[i] == '1')).get());
		for (int i = 0; c.markers[i]; ++i)
			graph->addMarker(
			    made(new Probe<VGuiGraphMarker>("m" + std::to_string(i), &log, c.markers[i] == '1'))
			        .get());
		if (c.cursor)
			graph->graphCursor(made(new Probe<VGuiGraphCursor>("c", &log)).get());
		VSTGUI::CPoint where(5, 5);
		EXPECT_EQ(graph->onMouseDownEvent(where, VSTGUI::CButtonState(VSTGUI::kLButton), nullptr),
		          c.result)
		    << c.log;
		EXPECT_EQ(log, c.log);
	}
}

TEST(VGuiGraph, FocusSkipsPlotsThatCannotTakeItAndWrapsRound)
{
	auto graph = linearGraph();
	auto a = made(new FixedPlot({1, 1, 0}, {0, 0, 0}));
	auto hidden = made(new FixedPlot({1, 1, 0}, {0, 0, 0}, false));
	auto b = made(new FixedPlot({1, 1, 0}, {0, 0, 0}));
	for (VGuiGraphPlot* p : {a.get(), hidden.get(), b.get()})
		graph->addPlot(p, false);
	VGuiGraphPlot* plot = nullptr;
	VGuiGraphData* data = nullptr;
	const VGuiGraphPlot* expected[] = {a.get(), b.get(), a.get(), b.get()};
	const VGuiGraphFocusOperation steps[] = {VGuiGraphFocusReset, VGuiGraphFocusNext,
	                                         VGuiGraphFocusNext, VGuiGraphFocusPrevious};
	for (int i = 0; i < 4; ++i)
	{
		graph->focus(plot, data, steps[i]);
		EXPECT_EQ(plot, expected[i]) << "step " << i;
		EXPECT_EQ(data, static_cast<FixedPlot*>(plot)->data.get());
	}
	graph->isActive(a.get(), false);
	graph->isActive(b.get(), false);
	graph->currentFocus(plot, data);
	EXPECT_EQ(plot, nullptr);
	EXPECT_EQ(data, nullptr);
}

// Records the plots it was told about.
template <typename Base> struct Follower : Probe<Base>
{
	using Probe<Base>::Probe;
	void notifyPlotReplaced(VGuiGraphPlot* old, VGuiGraphPlot* replacement) override
	{
		*this->log += this->name + (old == replacement ? ":same " : ":new ");
	}
};

TEST(VGuiGraph, ReplacesPlotsInPlaceAndTellsTheCursorAndTheMarkers)
{
	auto graph = linearGraph();
	std::string log;
	graph->graphCursor(made(new Follower<VGuiGraphCursor>("c", &log)).get());
	graph->addMarker(made(new Follower<VGuiGraphMarker>("m", &log)).get());
	auto first = made(new FixedPlot({1, 1, 0}, {0, 0, 0}));
	auto second = made(new FixedPlot({1, 1, 0}, {0, 0, 0}));
	auto third = made(new FixedPlot({1, 1, 0}, {0, 0, 0}));
	graph->addPlot(first.get(), false);
	graph->addPlot(third.get(), false);
	graph->replacePlot(first.get(), second.get(), false);
	graph->replacePlot(second.get(), second.get(), false);
	EXPECT_EQ(log, "c:new m:new c:same m:same ");
	EXPECT_EQ(first->graph(), nullptr);
	EXPECT_EQ(first->referenceCount(), 1);
	VGuiGraphPlot* plot = nullptr;
	VGuiGraphData* data = nullptr;
	graph->currentFocus(plot, data);
	EXPECT_EQ(plot, second.get());
	graph->removeAllPlots();
	EXPECT_EQ(second->referenceCount(), 1);
}

// A hosted graph whose probe element records the changes of each update.
struct RangeFixture
{
	explicit RangeFixture(VGuiGraphAxis* xAxis = nullptr)
	{
		if (xAxis)
			graph->replaceAxis(graph->xAxisSlot(), xAxis, graph->xGrid(), VGuiGraphAxisReplaced,
			                   false);
		view.show(graph.get());
		graph->addElement(probe.get());
	}

	// The range bits of the last update; 0 when none ran.
	VGuiGraphChanges rangeChanges()
	{
		const VGuiGraphChanges c = probe->seen.empty() ? 0 : probe->seen.back() & 7;
		probe->seen.clear();
		return c;
	}

	RecordingView view;
	VGuiReference<VGuiGraph> graph = linearGraph();
	std::string log;
	VGuiReference<Element> probe = made(new Element("probe", &log));
};

// How pans move the ranges, the window's pan drags prove.
TEST(VGuiGraph, RescalesWhenAutoScalingIsTurnedBackOn)
{
	RangeFixture f;
	f.graph->autoScale(false, false);
	f.graph->range({20, 2, 0}, {5, 0, 0}, {});
	auto plot = made(new FixedPlot({10, 1, 0}, {0, -1, 0}));
	f.graph->addPlot(plot.get(), true);
	f.rangeChanges();
	f.graph->autoScale(true, true);
	EXPECT_EQ(f.graph->maximum(), VGuiGraphPoint(10, 1, 0));
	EXPECT_EQ(f.graph->minimum(), VGuiGraphPoint(0, -1, 0));
	EXPECT_EQ(f.rangeChanges(), 3u);
}

struct AutoScaleCase
{
	VGuiGraphAutoScaleMode mode;
	double dataMin, dataMax;
	double min, max;
};

// The old x range is 0 .. 10; the graph's own mode is 63.
const AutoScaleCase kAutoScaleCases[] = {
    {VGuiGraphGrowX, 2, 12, 0, 12},
    {VGuiGraphShrinkX, 2, 12, 2, 10},
    {VGuiGraphGrowX | VGuiGraphShrinkX, 2, 12, 2, 12},
    {VGuiGraphGrowY | VGuiGraphShrinkY, 2, 12, 0, 10},
    {VGuiGraphShrinkX, -5, 5, 0, 5},
    {VGuiGraphUseStoredMode, -5, 5, -5, 5},
};

TEST(VGuiGraph, AutoScaleModesLetEachBoundGrowOrShrink)
{
	for (const AutoScaleCase& c : kAutoScaleCases)
	{
		RangeFixture f;
		f.graph->range({10, 1, 0}, {0, -1, 0}, {});
		auto plot = made(new FixedPlot({c.dataMax, 1, 0}, {c.dataMin, -1, 0}));
		f.graph->addPlot(plot.get(), false);
		f.rangeChanges();
		f.graph->zoomAllX(c.mode, 0);
		EXPECT_EQ(f.graph->minimum().x, c.min) << c.mode;
		EXPECT_EQ(f.graph->maximum().x, c.max) << c.mode;
		EXPECT_EQ(f.rangeChanges(), c.min != 0 || c.max != 10 ? 1u : 0u) << c.mode;
		EXPECT_EQ(f.graph->autoScaleMode(), VGuiGraphScaleAll);
	}
}

TEST(VGuiGraph, RangesKeepZeroWhenAskedAndNeverKeepALogarithmicZero)
{
	RangeFixture linear;
	linear.graph->includeZero(2);
	auto plot = made(new FixedPlot({8, 5, 0}, {4, 3, 0}));
	linear.graph->addPlot(plot.get(), true);
	EXPECT_EQ(linear.graph->minimum(), VGuiGraphPoint(4, 0, 0));

	// Only growing is allowed, yet a minimum of 0 cannot stay on a
	// logarithmic axis.
	RangeFixture log(new VGuiLogAxis(true));
	log.graph->range({10, 1, 0}, {0, -1, 0}, {});
	log.graph->addPlot(plot.get(), false);
	log.graph->zoomAllX(VGuiGraphGrowX, 0);
	EXPECT_EQ(log.graph->minimum().x, 4);
	EXPECT_EQ(log.graph->maximum().x, 10);
}

TEST(VGuiGraph, AStoredNaNAlwaysCountsAsAChange)
{
	RangeFixture f;
	const double nan = std::numeric_limits<double>::quiet_NaN();
	f.graph->maximum({nan, 1, 0});
	f.rangeChanges();
	f.graph->maximum({nan, 1, 0});
	EXPECT_EQ(f.rangeChanges(), 1u);
	f.graph->maximum({2, 1, 0});
	f.graph->minimum({nan, -1, 0});
	f.rangeChanges();
	// Setting the maximum looks at the maximum only.
	f.graph->maximum({2, 1, 0});
	EXPECT_EQ(f.rangeChanges(), 0u);
}

TEST(VGuiGraph, ZoomAllTakesOnlySpansBelow200Decibels)
{
	const double spans[][2] = {{0, 50}, {-3, 50}, {200, 50}, {199, 199}, {0.5, 0.5}};
	for (const auto& s : spans)
	{
		RangeFixture f;
		f.graph->yAxis()->maximumDecibelSpan(50);
		f.graph->zoomAll(VGuiGraphUseStoredMode, 0, s[0], 0);
		EXPECT_EQ(f.graph->yAxis()->maximumDecibelSpan(), s[1]) << s[0];
	}
}

} // namespace
} // namespace velora_test
