// The open editor follows the host: a value of the pan parameter that the host
// hands the controller (setParamNormalized, as automation, the host's own
// controls and undo do) turns the knob and changes the display in a real
// window on the editor's idle tick, and goes back to the host as no edit.
// What a window shows is compared with an editor opened after the change,
// which starts at the host's value.
#include "support/editor_window.h"
#include "support/loaded_bundle.h"
#include "support/recording_handler.h"
#include "support/virtual_display.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

namespace velora_test {
namespace {

const auto* virtualDisplay = ::testing::AddGlobalTestEnvironment(new VirtualDisplay);

constexpr ParamID kPan = 100;
// The idle tick comes every 5 ticks; the rest is the X server's drawing.
constexpr int kMaxTicks = 100;

ParamValue normalized(double degrees)
{
	return (degrees + 90.0) / 180.0;
}

struct EditorFollows : ::testing::Test
{
	EditorFollows() { plug.controller->setComponentHandler(&handler); }
	~EditorFollows() override { plug.controller->setComponentHandler(nullptr); }

	// Sets the value as a host does and turns the run loop until each window
	// shows what an editor opened afterwards shows. Gives that picture, or
	// nothing if they never agree. (A window being redrawn may show a part
	// cleared for a moment: each picture is taken once.)
	std::vector<unsigned long> hostSets(double degrees, const std::vector<EditorWindow*>& windows)
	{
		plug.controller->setParamNormalized(kPan, normalized(degrees));
		EditorWindow reference(plug.controller, host, 0, 320);
		std::vector<unsigned long> shown;
		const auto showsReference = [&] {
			shown = reference.face();
			// Drawn at all: a window starts in one colour.
			return std::adjacent_find(shown.begin(), shown.end(), std::not_equal_to<>()) !=
			           shown.end() &&
			       std::all_of(windows.begin(), windows.end(),
			                   [&](EditorWindow* w) { return w->face() == shown; });
		};
		if (!reference.attached() || !host.runUntil(showsReference, kMaxTicks))
			return {};
		return shown;
	}

	PlugPair plug;
	RecordingHandler handler;
	HostFrame host;
};

// Every open view follows each host value and a closed one is left alone; once
// every editor is closed, VSTGUI closes its X connection and leaves nothing in
// the run loop, and an editor opened afterwards has a new one and must still
// draw. None of it is an edit.
TEST_F(EditorFollows, OpenViewsShowEveryHostValueWithoutAnEdit)
{
	auto first = std::make_unique<EditorWindow>(plug.controller, host, 0, 0);
	auto second = std::make_unique<EditorWindow>(plug.controller, host, 250, 0);
	ASSERT_TRUE(first->attached() && second->attached());
	std::vector<unsigned long> shown;
	for (double degrees : {84.1, 18.9, -90.0, 90.0, -0.1})
	{
		const auto now = hostSets(degrees, {first.get(), second.get()});
		EXPECT_FALSE(now.empty()) << degrees;
		EXPECT_NE(now, shown) << degrees;
		shown = now;
		// The value is the host's own, not the knob's float sent back.
		EXPECT_EQ(plug.controller->getParamNormalized(kPan), normalized(degrees));
	}
	// The first view closes and goes while a change is pending.
	plug.controller->setParamNormalized(kPan, normalized(60.0));
	first.reset();
	EXPECT_FALSE(hostSets(60.0, {second.get()}).empty());
	second.reset();
	EXPECT_EQ(host.registeredEvents(), 0u) << "handlers left in the run loop";
	EditorWindow again(plug.controller, host, 0, 0);
	EXPECT_FALSE(hostSets(30.0, {&again}).empty());
	EXPECT_TRUE(handler.calls.empty()) << handler.calls.size() << " edits";
}

} // namespace
} // namespace velora_test
