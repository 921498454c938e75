// velora-scope's window under a virtual X server, driven by real X input
// (xdotool) as a user drives it: keys pick cursors, drags zoom and draw
// filter sections, and what it prints and the window's pixels are checked
// against the plot area read from those pixels.
#include "scope/scope_process.h"
#include "scope/tone_in_noise.h"
#include "support/virtual_display.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
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
	void drag(int x1, int y1, int x2, int y2) const
	{
		const std::string at = "mousemove --window " + window + " ";
		xdotool(at + std::to_string(x1) + " " + std::to_string(y1) + " mousedown 1 " + at +
		        std::to_string((x1 + x2) / 2) + " " + std::to_string((y1 + y2) / 2) + " " + at +
		        std::to_string(x2) + " " + std::to_string(y2) + " mouseup 1");
	}

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
	// The plot area's black interior along the window's middle row.
	std::pair<int, int> plotColumns() const
	{
		int width = 0;
		int height = 0;
		const auto all = pixels(width, height);
		const size_t row = static_cast<size_t>(height / 2) * static_cast<size_t>(width);
		int left = 0;
		while (left < width && all[row + static_cast<size_t>(left)] != 0)
			++left;
		int right = width - 1;
		while (right > left && all[row + static_cast<size_t>(right)] != 0)
			--right;
		return {left, right};
	}

	std::string folder;
	std::string window;
	std::unique_ptr<ToolProcess> scope;
};

// Reads "view LO Hz to HI Hz" out of a read-out line.
bool viewOf(const std::string& line, double& low, double& high)
{
	const auto at = line.find("view ");
	return at != std::string::npos &&
	       std::sscanf(line.c_str() + at, "view %lf Hz to %lf Hz", &low, &high) == 2;
}

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

TEST_F(ScopeWindow, AZoomDragShowsTheDraggedFrequenciesInTheReadOut)
{
	key('a');
	double low = 0;
	double high = 0;
	ASSERT_TRUE(viewOf(scope->lineWith("view "), low, high));
	const auto [left, right] = plotColumns();
	ASSERT_GT(right - left, 500);
	const int from = left + 200;
	const int to = left + 400;
	drag(from, 150, to, 300);
	double zoomedLow = 0;
	double zoomedHigh = 0;
	ASSERT_TRUE(viewOf(scope->lineWith("view "), zoomedLow, zoomedHigh));
	// The axis is logarithmic; two pixels of slack each way.
	const auto at = [&](double x) {
		return low * std::pow(high / low, (x - left) / (right - left));
	};
	const double slack = std::pow(high / low, 2.0 / (right - left));
	EXPECT_GT(zoomedLow, at(from) / slack);
	EXPECT_LT(zoomedLow, at(from) * slack);
	EXPECT_GT(zoomedHigh, at(to) / slack);
	EXPECT_LT(zoomedHigh, at(to) * slack);
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
