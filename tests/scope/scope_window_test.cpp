// velora-scope's window under a virtual X server, driven by real X input
// (xdotool) as a user drives it: keys pick cursors, and what it prints and
// the window's pixels are checked.
#include "scope/scope_process.h"
#include "scope/tone_in_noise.h"
#include "support/virtual_display.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace velora_test {
namespace {

const auto* virtualDisplay = ::testing::AddGlobalTestEnvironment(new VirtualDisplay);

class ScopeWindow : public ::testing::Test
{
protected:
	void SetUp() override
	{
		char pattern[] = "/tmp/velora-scope-XXXXXX";
		ASSERT_NE(mkdtemp(pattern), nullptr);
		folder = pattern;
		const std::string file = folder + "/tone.wav";
		ASSERT_TRUE(writeToneInNoise(file));
		scope = std::make_unique<ToolProcess>(VELORA_SCOPE,
		                                      std::vector<std::string>{"--size", "600x440", file});
		ASSERT_EQ(scope->line(), "cursor: zoom in");
		// The title names the file, in a folder of this test's own.
		window = shell("xdotool search --sync --onlyvisible --name '" + file + "'");
		ASSERT_FALSE(window.empty());
		window.pop_back();
		xdotool("mousemove --window " + window + " 300 200");
	}
	void TearDown() override { std::system(("rm -rf " + folder).c_str()); }

	void xdotool(const std::string& arguments) const
	{
		ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << arguments;
	}
	void key(char k) const { xdotool(std::string("key ") + k); }
	// The window's pixels as 0xRRGGBB.
	std::vector<unsigned long> pixels(int& width, int& height) const
	{
		Display* d = VirtualDisplay::display;
		const Window w = std::stoul(window);
		XWindowAttributes a;
		XGetWindowAttributes(d, w, &a);
		width = a.width;
		height = a.height;
		XImage* image = XGetImage(d, w, 0, 0, static_cast<unsigned>(width),
		                          static_cast<unsigned>(height), AllPlanes, ZPixmap);
		std::vector<unsigned long> all;
		for (int y = 0; image && y < height; ++y)
			for (int x = 0; x < width; ++x)
				all.push_back(XGetPixel(image, x, y) & 0xFFFFFF);
		if (image)
			XDestroyImage(image);
		return all;
	}
	std::string folder;
	std::string window;
	std::unique_ptr<ToolProcess> scope;
};

TEST_F(ScopeWindow, KeysPickEveryCursorAndNameIt)
{
	const std::pair<char, const char*> keys[] = {
	    {'x', "zoom out"},        {'p', "pan"},          {'d', "data"},
	    {'h', "harmonic"},        {'i', "integral"},     {'f', "differential"},
	    {'m', "marker"},          {'e', "erase marker"}, {'g', "gain filter"},
	    {'s', "shelving filter"}, {'z', "zoom in"}};
	for (const auto& [k, name] : keys)
	{
		key(k);
		EXPECT_EQ(scope->line(), std::string("cursor: ") + name);
	}
}

TEST_F(ScopeWindow, ShowsTheTracesInTheirColours)
{
	int width = 0;
	int height = 0;
	const auto all = pixels(width, height);
	// "Power spectrum" and "Peak power spectrum", the first two traces' colours.
	for (const unsigned long colour : {0x24F424ul, 0xF4F424ul})
		EXPECT_GT(std::count(all.begin(), all.end(), colour), 300) << std::hex << colour;
}

} // namespace
} // namespace velora_test
