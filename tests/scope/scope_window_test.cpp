// velora-scope's window under a virtual X server, driven by real X input
// (xdotool): keys pick cursors, drags zoom and draw filter sections, checked
// in what it prints and in the window's pixels.
#include "scope/tone_in_noise.h"
#include "support/temp_folder.h"
#include "support/tool_process.h"
#include "support/virtual_display.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xdamage.h>

#include <gtest/gtest.h>

#include <poll.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace velora_test {
namespace {

const auto* virtualDisplay = ::testing::AddGlobalTestEnvironment(new VirtualDisplay);

// The window's pixels as 0xRRGGBB.
struct Picture
{
	int width = 0;
	int height = 0;
	std::vector<unsigned long> all;
	unsigned long at(int x, int y) const
	{
		return all[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
	}
	// The mean row of a column's pixels of colour; NaN if it has none.
	double meanRowOf(unsigned long colour, int x) const
	{
		double sum = 0, count = 0;
		for (int y = 0; y < height; ++y)
			if (at(x, y) == colour)
				sum += y, ++count;
		return sum / count;
	}
};

// The plot area's black interior.
struct PlotArea
{
	int left, right, top, bottom;
	int x(double fraction) const { return left + static_cast<int>(fraction * (right - left)); }
	int y(double fraction) const { return top + static_cast<int>(fraction * (bottom - top)); }
};

// The colours of "Power spectrum" and "Filter adjust power spectrum".
constexpr unsigned long kTrace = 0x24F424;
constexpr unsigned long kPreview = 0xA0FFFF;

class ScopeWindow : public ::testing::Test
{
protected:
	void SetUp() override
	{
		const std::string file = scratch.path("tone.wav");
		ASSERT_TRUE(writeToneInNoise(file));
		scope = std::make_unique<ToolProcess>(VELORA_SCOPE,
		                                      std::vector<std::string>{"--size", "600x440", file});
		ASSERT_EQ(scope->line(), "cursor: zoom in");
		window =
		    ToolProcess("xdotool", {"search", "--sync", "--onlyvisible", "--name", file}).line();
		ASSERT_FALSE(window.empty());
		// The focus, as a window manager gives it: an earlier test's window took it.
		XSetInputFocus(VirtualDisplay::display, std::stoul(window), RevertToPointerRoot,
		               CurrentTime);
		XSync(VirtualDisplay::display, False);
		xdotool("mousemove --window " + window + " 300 200");
	}

	void xdotool(const std::string& arguments) const
	{
		ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << arguments;
	}
	void key(char k) const { xdotool(std::string("key ") + k); }
	std::string at(int x, int y) const
	{
		return "mousemove --window " + window + " " + std::to_string(x) + " " + std::to_string(y);
	}
	// Presses at from and moves to to in one step; released there unless hold.
	void drag(int x1, int y1, int x2, int y2, bool hold = false) const
	{
		xdotool(at(x1, y1) + " mousedown 1 " + at(x2, y2) + (hold ? "" : " mouseup 1"));
	}

	Picture picture() const
	{
		Display* d = VirtualDisplay::display;
		const Window w = std::stoul(window);
		XWindowAttributes a;
		XGetWindowAttributes(d, w, &a);
		Picture p{a.width, a.height, {}};
		XImage* image = XGetImage(d, w, 0, 0, static_cast<unsigned>(p.width),
		                          static_cast<unsigned>(p.height), AllPlanes, ZPixmap);
		for (int y = 0; image && y < p.height; ++y)
			for (int x = 0; x < p.width; ++x)
				p.all.push_back(XGetPixel(image, x, y) & 0xFFFFFF);
		if (image)
			XDestroyImage(image);
		return p;
	}
	// The picture once both channels' traces ("Power spectrum", "Peak power
	// spectrum") are drawn.
	Picture drawn() const
	{
		return pictureWhen([](const Picture& p) {
			return std::count(p.all.begin(), p.all.end(), kTrace) > 300 &&
			       std::count(p.all.begin(), p.all.end(), 0xF4F424ul) > 300;
		});
	}
	PlotArea plotArea() const
	{
		const Picture p = drawn();
		PlotArea a{0, p.width - 1, 0, p.height - 1};
		const auto black = [&](int x, int y) { return p.at(x, y) == 0; };
		while (a.left < a.right && !black(a.left, p.height / 2))
			++a.left;
		while (a.right > a.left && !black(a.right, p.height / 2))
			--a.right;
		const int column = a.x(0.25);
		while (a.top < a.bottom && !black(column, a.top))
			++a.top;
		while (a.bottom > a.top && !black(column, a.bottom))
			--a.bottom;
		return a;
	}
	// The picture once done finds what it looks for, looked at each time the
	// tool draws; empty if the tool stops drawing first.
	Picture pictureWhen(const std::function<bool(const Picture&)>& done) const
	{
		Display* d = VirtualDisplay::display;
		int events = 0;
		int errors = 0;
		if (!XDamageQueryExtension(d, &events, &errors))
			return {};
		const Damage damage = XDamageCreate(d, std::stoul(window), XDamageReportNonEmpty);
		Picture p;
		for (;;)
		{
			// Emptied before looking, so that any drawing after the look is told.
			XDamageSubtract(d, damage, 0, 0);
			XSync(d, False);
			p = picture();
			if (done(p) || !nextDamage())
				break;
		}
		// Gone before the window is, which would take the damage with it.
		XDamageDestroy(d, damage);
		XSync(d, False);
		return done(p) ? p : Picture{};
	}

	TempFolder scratch;
	std::string window;
	std::unique_ptr<ToolProcess> scope;

private:
	// The test's connection hears of nothing but damage; bounded for a broken run.
	static bool nextDamage()
	{
		Display* d = VirtualDisplay::display;
		pollfd p{ConnectionNumber(d), POLLIN, 0};
		while (XPending(d) == 0)
			if (poll(&p, 1, 30000) <= 0)
				return false;
		XEvent event;
		XNextEvent(d, &event);
		return true;
	}
};

// The view of a read-out line: "view LO Hz to HI Hz, LO dB to HI dB".
struct View
{
	double lowHz = 0, highHz = 0, lowDb = 0, highDb = 0;
};

bool viewOf(const std::string& line, View& v)
{
	const auto at = line.find("view ");
	return at != std::string::npos &&
	       std::sscanf(line.c_str() + at, "view %lf Hz to %lf Hz, %lf dB to %lf dB", &v.lowHz,
	                   &v.highHz, &v.lowDb, &v.highDb) == 4;
}

TEST_F(ScopeWindow, KeysPickEveryCursorAndNameItAndQQuits)
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
	key('q');
	EXPECT_EQ(scope->finish(), 0) << scope->errors();
}

// WM_DELETE_WINDOW, as a window manager's close button sends it.
TEST_F(ScopeWindow, CloseButtonQuits)
{
	Display* d = VirtualDisplay::display;
	XEvent event{};
	XClientMessageEvent& message = event.xclient;
	message.type = ClientMessage;
	message.window = std::stoul(window);
	message.message_type = XInternAtom(d, "WM_PROTOCOLS", False);
	message.format = 32;
	message.data.l[0] = static_cast<long>(XInternAtom(d, "WM_DELETE_WINDOW", False));
	XSendEvent(d, message.window, False, NoEventMask, &event);
	XSync(d, False);
	EXPECT_EQ(scope->finish(), 0) << scope->errors();
}

struct DragCase
{
	const char* name;
	char cursor;
	// Where the drag ends, as fractions of the plot area; past 1 leaves the window.
	double toX;
	double toY;
	const char* ends; // the start of the line printed when the drag has ended
};

class ScopeDrag : public ScopeWindow, public ::testing::WithParamInterface<DragCase>
{};

TEST_P(ScopeDrag, EndsWhereverReleasedAndActsOnWhatWasDragged)
{
	const DragCase& c = GetParam();
	key('a');
	View all;
	ASSERT_TRUE(viewOf(scope->lineWith("view "), all));
	key(c.cursor);
	ASSERT_EQ(scope->lineWith("cursor: ").at(8), c.cursor);
	const PlotArea area = plotArea();
	ASSERT_GT(area.right - area.left, 500);
	const int x1 = area.x(0.4);
	const int y1 = area.y(0.5);
	const int x2 = area.x(c.toX);
	const int y2 = area.y(c.toY);
	const bool preview = c.cursor == 'g' && c.toX <= 1.0;
	drag(x1, y1, x2, y2, preview);
	double previewDb = 0;
	double draggedDb = 0;
	if (preview)
	{
		// The preview leaves the trace at the move to show the section
		// there: its rise over the trace where the drag began.
		const auto rise = [&](const Picture& p) {
			return p.width ? p.meanRowOf(kTrace, x1) - p.meanRowOf(kPreview, x1) : NAN;
		};
		const double risePixels =
		    rise(pictureWhen([&](const Picture& p) { return !std::isnan(rise(p)); }));
		ASSERT_FALSE(std::isnan(risePixels));
		const double dbPerPixel = (all.highDb - all.lowDb) / (area.bottom - area.top);
		previewDb = risePixels * dbPerPixel;
		// The section's gain is the height dragged over, in the scale's dB.
		draggedDb = (y1 - y2) * dbPerPixel;
		xdotool("mouseup 1");
	}
	const std::string ended = scope->lineWith(c.ends);
	ASSERT_FALSE(ended.empty());
	if (preview)
	{
		// ",G=" and the section's gain in dB.
		const auto g = ended.find(",G=");
		ASSERT_NE(g, std::string::npos) << ended;
		const double gainDb = std::strtod(ended.c_str() + g + 3, nullptr);
		EXPECT_NEAR(previewDb, gainDb, 2.0) << ended;
		EXPECT_NEAR(draggedDb, gainDb, 1.0) << ended;
	}
	if (c.cursor == 'z')
	{
		View zoomed;
		ASSERT_TRUE(viewOf(ended, zoomed));
		// The axis is logarithmic; two pixels of slack each way.
		const double span = all.highHz / all.lowHz;
		const auto frequencyAt = [&](double x) {
			return all.lowHz * std::pow(span, (x - area.left) / (area.right - area.left));
		};
		const double slack = std::pow(span, 2.0 / (area.right - area.left));
		EXPECT_NEAR(std::log(zoomed.lowHz / frequencyAt(x1)), 0.0, std::log(slack));
		EXPECT_NEAR(std::log(zoomed.highHz / frequencyAt(x2)), 0.0, std::log(slack));
	}
}

INSTANTIATE_TEST_SUITE_P(, ScopeDrag,
                         ::testing::Values(DragCase{"ZoomIn", 'z', 0.75, 0.8, "view "},
                                           DragCase{"Gain", 'g', 0.55, 0.4, "filter"},
                                           DragCase{"GainReleasedOutsideTheWindow", 'g', 1.2, 0.3,
                                                    "filter"}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace velora_test
