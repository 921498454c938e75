// The graph control outside a window: the graph that create() makes from a
// type description, the global properties it shares, and its size. Drawing
// and events are driven through a real window in graph_window_test.
#include "offscreen_canvas.h"

#include "vgui/vguiglobalgraphproperties.h"
#include "vgui/vguigraphaxis.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguigraphcontroltypeinfo.h"
#include "vgui/vguigraphgridproperties.h"

#include <gtest/gtest.h>

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

TEST(GraphControl, TakesTheMaximumDecibelSpanOnlyBelow200)
{
	OffscreenCanvas init(1, 1);
	for (const auto& [asked, kept] :
	     {std::pair{120.0, 120.0}, {199.5, 199.5}, {200.0, 0.0}, {-1.0, 0.0}})
	{
		VGuiGraphControl control(VSTGUI::CRect(0, 0, 300, 200), nullptr, 0, nullptr);
		control.create(VGuiGraphControlTypeInfo(0, 2, "", ""), 10, 1, 1, 0.001, 1, asked);
		EXPECT_EQ(control.graph()->yAxis()->maximumDecibelSpan(), kept) << asked;
	}
}

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

} // namespace
} // namespace velora_test
