// The graph control outside a window: the graph that create() makes from a
// type description, the global properties it shares, and its size. Drawing
// and events are driven through a real window in graph_window_test.
#include "graph_host.h"
#include "offscreen_canvas.h"

#include "vgui/vguiglobalgraphproperties.h"
#include "vgui/vguigraphaxis.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguigraphcontroltypeinfo.h"
#include "vgui/vguigraphgridproperties.h"

#include <gtest/gtest.h>

#include <tuple>

namespace velora_test {
namespace {

struct AxisCase
{
	VGuiGraphAxisType type;
	const char* name; // null: no axis
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
		ASSERT_EQ(axis != nullptr, c.name != nullptr);
		if (!axis)
			continue;
		EXPECT_STREQ(axis->name(), c.name);
		EXPECT_EQ(axis->power, c.power);
	}
	EXPECT_FALSE(control.create(VGuiGraphControlTypeInfo(0, 0, "", ""), 1, 0, 1, 0, 1, 0));
}

INSTANTIATE_TEST_SUITE_P(
    , GraphControlAxes,
    ::testing::Values(AxisCase{0, "Linear Axis", false}, AxisCase{1, "Log Axis", false},
                      AxisCase{2, "dB Axis", false}, AxisCase{3, "dB Axis", true},
                      AxisCase{4, nullptr, false}, AxisCase{-1, nullptr, false}));

TEST(GraphControl, GraphsShareTheGlobalPropertiesUntilTheyAreReset)
{
	OffscreenCanvas init(1, 1);
	auto global = made(new VGuiGlobalGraphProperties);
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
	for (const auto& [visible, alpha, resized] :
	     {std::tuple{true, 1.0f, true}, {false, 1.0f, false}, {true, 0.0f, false}})
	{
		VGuiGraphControl control(VSTGUI::CRect(0, 0, 300, 200), nullptr, 0, nullptr);
		control.create(VGuiGraphControlTypeInfo(0, 0, "", ""), 1, 0, 1, 0, 1, 0);
		control.setVisible(visible);
		control.setAlphaValue(alpha);
		control.setViewSize(VSTGUI::CRect(0, 0, 250, 150));
		EXPECT_EQ(control.graph()->extent().right, resized ? 250.0 : 300.0);
	}
}

} // namespace
} // namespace velora_test
