// The editor in a real window: an X11 window under a virtual X server (the
// test starts Xvfb itself when no display is set), the "editor" view from the
// loaded bundle attached to it with the SDK's X11 platform type, and a host
// run loop that serves VSTGUI's file descriptors and timers.
#include "support/editor_window.h"
#include "support/loaded_bundle.h"
#include "support/virtual_display.h"

#include <memory>

namespace velora_test {
namespace {

const auto* virtualDisplay = ::testing::AddGlobalTestEnvironment(new VirtualDisplay);

TEST(EditorWindow, AttachesToAnX11WindowServedByTheRunLoop)
{
	PlugPair plug;
	HostFrame host;
	auto open = std::make_unique<EditorWindow>(plug.controller, host, 0, 0);
	ASSERT_TRUE(open->attached());
	host.run(30);
	EXPECT_GT(host.timerCalls(), 0);
	EXPECT_GT(host.registeredEvents(), 0u);
	open.reset();
	EXPECT_EQ(host.registeredEvents(), 0u);
}

} // namespace
} // namespace velora_test
