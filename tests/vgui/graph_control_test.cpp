// The graph control outside a window: the graph that create() makes from a
// type description, the global properties it shares, and its size. Drawing
// and events are driven through a real window in graph_window_test.
#include "graph_host.h"
#include "offscreen_canvas.h"

#include "vgui/vguidatacursor.h"
#include "vgui/vguidatamarker.h"
#include "vgui/vguiglobalgraphproperties.h"
#include "vgui/vguigraphaxis.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguigraphcontroltypeinfo.h"
#include "vgui/vguigraphgridproperties.h"
#include "vgui/vguilineplot.h"

#include "vstgui/lib/cframe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

namespace velora_test {
namespace {

struct AxisCase
{
	VGuiGraphAxisType type;
	const char* name; // null: no axis
	bool logarithmic;
	bool power;
};

class GraphControlAxes : public ::testing::TestWithParam<AxisCase>
{};

TEST_P(GraphControlAxes, EachTypeMakesItsAxisAndUnknownTypesNone)
{
	OffscreenCanvas init(1, 1);
	const AxisCase c = GetParam();
	VGuiGraphControl control(VSTGUI::CRect(0, 0, 300, 200), nullptr, 0, nullptr);
	ASSERT_TRUE(control.create(VGuiGraphControlTypeInfo(c.type, c.type, "f", nullptr), 10.0, 1.0,
	                           10.0, 1.0, 1.0, 60.0));
	for (const VGuiGraphAxis* axis : {control.graph()->xAxis(), control.graph()->yAxis()})
	{
		if (!c.name)
		{
			EXPECT_EQ(axis, nullptr);
			continue;
		}
		ASSERT_NE(axis, nullptr);
		EXPECT_STREQ(axis->name(), c.name);
		EXPECT_EQ(axis->isLogScale(), c.logarithmic);
		EXPECT_EQ(axis->power, c.power);
	}
	EXPECT_FALSE(control.create(VGuiGraphControlTypeInfo(0, 0, "", ""), 1, 0, 1, 0, 1, 0));
}

INSTANTIATE_TEST_SUITE_P(, GraphControlAxes,
                         ::testing::Values(AxisCase{0, "Linear Axis", false, false},
                                           AxisCase{1, "Log Axis", true, false},
                                           AxisCase{2, "dB Axis", true, false},
                                           AxisCase{3, "dB Axis", true, true},
                                           AxisCase{4, nullptr, false, false},
                                           AxisCase{-1, nullptr, false, false}));

TEST(GraphControl, GraphsShareTheGlobalPropertiesUntilTheyAreReset)
{
	OffscreenCanvas init(1, 1);
	auto global = VGuiReference<VGuiGlobalGraphProperties>::adopt(new VGuiGlobalGraphProperties);
	VGuiGlobalGraphProperties::instance(global.get());
	VGuiGraphControl control(VSTGUI::CRect(0, 0, 300, 200), nullptr, 0, nullptr);
	control.create(VGuiGraphControlTypeInfo(0, 0, "", ""), 1, 0, 1, 0, 1, 0);
	global->colours[VGuiGlobalGraphProperties::AxisGrid] = VGuiColour(1, 2, 3);
	global->realizePalettes();
	EXPECT_EQ(control.graph()->gridProperties()->colour, VGuiColour(1, 2, 3));
	global->reset(true);
	EXPECT_EQ(control.graph()->gridProperties()->colour, VGuiColour(64, 64, 64));
	VGuiGlobalGraphProperties::instance(nullptr);
}

TEST(GraphControl, ResizesItsGraphOnlyWhileVisibleAndNotTransparent)
{
	OffscreenCanvas init(1, 1);
	struct Case
	{
		bool visible;
		float alpha;
		bool resized;
	};
	for (const Case c : {Case{true, 1.0f, true}, {false, 1.0f, false}, {true, 0.0f, false}})
	{
		VGuiGraphControl control(VSTGUI::CRect(0, 0, 300, 200), nullptr, 0, nullptr);
		control.create(VGuiGraphControlTypeInfo(0, 0, "", ""), 1, 0, 1, 0, 1, 0);
		control.setVisible(c.visible);
		control.setAlphaValue(c.alpha);
		control.setViewSize(VSTGUI::CRect(0, 0, 250, 150));
		EXPECT_EQ(control.graph()->extent().right, c.resized ? 250.0 : 300.0);
	}
}

VGuiReference<VGuiGraphData> sine(double periods)
{
	auto data = made(new VGuiGraphData(200, 1));
	for (int i = 0; i < 200; ++i)
		(*data)[i] = VGuiGraphPoint(i / 199.0, std::sin(2 * M_PI * periods * i / 199.0), 0);
	return data;
}

// A data cursor is dragged over a sine; after each change in turn and a
// cursor step, the control's drawing (its picture of the graph below the
// cursor, and the cursor) equals the graph painted afresh, pixel for pixel.
TEST(GraphControl, DrawsWhatTheGraphPaintsAfreshAfterEachChange)
{
	OffscreenCanvas init(1, 1);
	auto* frame = new VSTGUI::CFrame(VSTGUI::CRect(0, 0, 300, 200), nullptr);
	auto* control = new VGuiGraphControl(VSTGUI::CRect(0, 0, 300, 200), nullptr, 0, nullptr);
	control->create(VGuiGraphControlTypeInfo(0, 0, "x", "y"), 1, 0, 1.2, -1.2, 1, 0);
	VGuiGraph* graph = control->graph();
	graph->autoScale(false, false);
	auto plot = made(new VGuiLinePlot(1, sine(3).get()));
	graph->addPlot(plot.get(), false);
	frame->addView(control);
	frame->attached(frame);
	graph->graphCursor(made(new VGuiDataCursor(graph, false, true)).get());
	VSTGUI::CPoint at(150, 100);
	control->onMouseDown(at, VSTGUI::CButtonState(VSTGUI::kLButton));
	const std::pair<const char*, std::function<void()>> changes[] = {
	    {"cursor only", [] {}},
	    {"data replaced", [&] { plot->graphData(sine(4).get(), false); }},
	    {"zoom", [&] { graph->zoomIn(VGuiPoint(90, 50), VGuiPoint(220, 150)); }},
	    {"marker added",
	     [&] {
		     graph->addMarker(
		         made(new VGuiDataMarker(graph, plot.get(), 60, (*plot->graphData())[60])).get());
	     }},
	    {"plot colour",
	     [&] {
		     const VGuiColour red(255, 0, 0);
		     plot->properties(
		         made(new VGuiGraphPlotProperties(red, red, VSTGUI::kLineSolid, 1.0)).get());
	     }},
	};
	for (const auto& [what, change] : changes)
	{
		change();
		at.x += 7;
		control->onMouseMoved(at, VSTGUI::CButtonState(VSTGUI::kLButton));
		OffscreenCanvas cached(300, 200), fresh(300, 200);
		// Set, as a window's frame sets it: a new context reports
		// anti-aliasing but draws aliased until a mode is set.
		for (OffscreenCanvas* canvas : {&cached, &fresh})
			canvas->get()->setDrawMode(VSTGUI::kAntiAliasing);
		control->drawRect(cached.get(), control->getViewSize());
		graph->paint(fresh.get(), graph->extent());
		int differing = 0;
		for (int i = 0; i < 300 * 200; ++i)
			differing += !(cached.pixel(i % 300, i / 300) == fresh.pixel(i % 300, i / 300));
		EXPECT_EQ(differing, 0) << what;
	}
	frame->forget();
}

} // namespace
} // namespace velora_test
