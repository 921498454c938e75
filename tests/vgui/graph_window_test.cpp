// The graph control in a real X11 window served by the plug-in's run loop;
// events enter through the frame's platform entry, pixels are its rendering.
#include "graph_host.h"
#include "offscreen_canvas.h"
#include "support/host_frame.h"
#include "support/virtual_display.h"

#include "vgui/guiintegralcursormultiplier.h"
#include "vgui/vguiconstraineddatacursor.h"
#include "vgui/vguidatacursor.h"
#include "vgui/vguidatacursormsg.h"
#include "vgui/vguidatagaincursor.h"
#include "vgui/vguidatamarker.h"
#include "vgui/vguidatashelvingcursor.h"
#include "vgui/vguidifferentialdatacursor.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguigraphcontroltypeinfo.h"
#include "vgui/vguigraphcursorcolour.h"
#include "vgui/vguigraphmarker.h"
#include "vgui/vguiharmonicdatacursor.h"
#include "vgui/vguiintegralcursormsg.h"
#include "vgui/vguiintegraldatacursor.h"
#include "vgui/vguilineplot.h"
#include "vgui/vguimarkerdatacursor.h"
#include "vgui/vguimarkerdifferentialdatacursor.h"
#include "vgui/vguimarkererasedatacursor.h"
#include "vgui/vguimarkerharmonicdatacursor.h"
#include "vgui/vguimarkerintegraldatacursor.h"
#include "vgui/vguinewgraphmarkerbroker.h"
#include "vgui/vguipancursor.h"
#include "vgui/vguiparametricfiltersection.h"
#include "vgui/vguishelvingfiltersection.h"
#include "vgui/vguizoomincursor.h"
#include "vgui/vguizoomoutcursor.h"
#include "x11_runloop.h"

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/events.h"
#include "vstgui/lib/vstguiinit.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace velora_test {
namespace {

using namespace VSTGUI;

const auto* virtualDisplay = ::testing::AddGlobalTestEnvironment(new VirtualDisplay);

constexpr int width = 400;
constexpr int height = 300;

// Keeps what the cursors report and the sections plot-edit listeners hear.
struct Listener
{
	static bool heard(void* self, void* message)
	{
		auto* msg = static_cast<VGuiGraphCursorMsg*>(message);
		auto* listener = static_cast<Listener*>(self);
		listener->texts.push_back(msg->text());
		listener->ids.push_back(msg->dataId());
		if (auto* data = dynamic_cast<VGuiDataCursorMsg*>(msg))
			listener->points.push_back(data->point);
		if (auto* area = dynamic_cast<VGuiIntegralCursorMsg*>(msg))
			listener->areas.push_back(area->sum);
		return false;
	}
	static bool edited(void* self, void* message)
	{
		auto* edit = static_cast<VGuiPlotEditMsg*>(message);
		static_cast<Listener*>(self)->edits.emplace_back(edit->section, edit->cancelled);
		return false;
	}
	OsiCallbackInstance member{&Listener::heard, this};
	OsiCallbackInstance editor{&Listener::edited, this};
	std::vector<std::string> texts;
	std::vector<int> ids;
	std::vector<VGuiGraphPoint> points;
	std::vector<double> areas;
	std::vector<std::pair<VGuiReference<VGuiGenericFilterSection>, bool>> edits;
};

// One window for the whole program: X11 cairo surfaces do not survive a reconnection.
class WindowFrame : public ::testing::Environment
{
public:
	void SetUp() override
	{
		init(nullptr);
		Display* display = VirtualDisplay::display;
		window =
		    XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, width, height, 0, 0, 0);
		XMapWindow(display, window);
		XFlush(display);
		frame = new CFrame(CRect(0, 0, width, height), nullptr);
		config = Steinberg::Vst::hostRunLoopConfig(&host);
		opened = frame->open(reinterpret_cast<void*>(window), PlatformType::kX11EmbedWindowID,
		                     config.get());
		host.run(5);
		shared = this;
	}
	void TearDown() override
	{
		frame->close();
		host.run(2);
		XDestroyWindow(VirtualDisplay::display, window);
		XFlush(VirtualDisplay::display);
	}

	static WindowFrame* shared;
	HostFrame host;
	CFrame* frame = nullptr;
	bool opened = false;

private:
	unsigned long window = 0;
	std::unique_ptr<IPlatformFrameConfig> config;
};
WindowFrame* WindowFrame::shared = nullptr;
const auto* windowFrame = ::testing::AddGlobalTestEnvironment(new WindowFrame);

// A graph control filling the window: x linear from 0 to 100, y by default alike.
class GraphWindow
{
public:
	explicit GraphWindow(VGuiGraphAxisType yType = VGuiGraphLinearAxis, double yMinimum = 0.0,
	                     double yMaximum = 100.0)
	: host(WindowFrame::shared->host),
	  frame(WindowFrame::shared->frame)
	{
		control = new VGuiGraphControl(CRect(0, 0, width, height), nullptr, 0, nullptr);
		control->create(VGuiGraphControlTypeInfo(VGuiGraphLinearAxis, yType, "x", "y"), 100.0, 0.0,
		                yMaximum, yMinimum, 1.0, 0.0);
		frame->addView(control);
		frame->setFocusView(control);
		control->plotEditCallbacks.link(&listener.editor);
		host.run(2);
	}
	~GraphWindow()
	{
		frame->removeView(control, true);
		host.run(2);
	}

	VGuiGraph* graph() const { return control->graph(); }
	// Fixes the ranges and shows plot.
	void show(const VGuiReference<VGuiGraphPlot>& plot)
	{
		graph()->autoScale(false, false);
		graph()->addPlot(plot.get(), false);
	}
	// Installs the cursor (taking over the creator's reference), listened to.
	template <typename Cursor> Cursor* use(Cursor* cursor)
	{
		graph()->graphCursor(cursor);
		cursor->release();
		cursor->dataMessages.link(&listener.member);
		return cursor;
	}

	void press(CPoint p, uint32_t n = 1) { click(MouseDownEvent(p, MouseButton::Left), n); }
	void drag(CPoint p) { click(MouseMoveEvent(p, MouseButton::Left), 1); }
	void release(CPoint p, uint32_t n = 1) { click(MouseUpEvent(p, MouseButton::Left), n); }
	template <typename Mouse> void click(Mouse e, uint32_t clicks)
	{
		e.clickCount = clicks;
		deliver(e);
	}
	void key(VirtualKey virt, char32_t character, bool shift, EventType type)
	{
		KeyboardEvent e(type);
		e.virt = virt;
		e.character = character;
		if (shift)
			e.modifiers.add(ModifierKey::Shift);
		deliver(e);
	}
	void tap(VirtualKey virt, char32_t character = 0, bool shift = false)
	{
		key(virt, character, shift, EventType::KeyDown);
		key(virt, character, shift, EventType::KeyUp);
	}
	// Press, four steps, a look while held, optionally Escape, release.
	void dragFromTo(
	    CPoint a, CPoint b, bool escape = false, const std::function<void()>& held = [] {})
	{
		press(a);
		for (int step = 1; step <= 4; ++step)
			drag(a + (b - a) * (step / 4.0));
		held();
		if (escape)
			tap(VirtualKey::Escape);
		release(b);
	}

	// Whether the cursor's colour is at p or a pixel next to it, as the frame renders it.
	bool cursorNear(CPoint p) const
	{
		OffscreenCanvas canvas(width, height);
		frame->drawRect(canvas.get(), CRect(0, 0, width, height));
		for (int dy = -1; dy <= 1; ++dy)
			for (int dx = -1; dx <= 1; ++dx)
				if (canvas.pixel(static_cast<int>(p.x) + dx, static_cast<int>(p.y) + dy) ==
				    VGuiGraphCursorColour::Colour)
					return true;
		return false;
	}
	// The graph point at a window point.
	VGuiGraphPoint at(CPoint p) const
	{
		VGuiGraphPoint g;
		graph()->inverseMap(g, VGuiPoint(p));
		return g;
	}
	// The window point of a graph point.
	CPoint where(double x, double y) const
	{
		VGuiPoint p;
		graph()->map(p, VGuiGraphPoint(x, y, 0.0), true);
		return CPoint(p.x, p.y);
	}

	HostFrame& host;
	CFrame* frame;
	VGuiGraphControl* control = nullptr;
	Listener listener;
	Listener measured;

	void deliver(Event& e)
	{
		// The entry that the X11 frame calls for the events of its window.
		static_cast<IPlatformFrameCallback*>(frame)->platformOnEvent(e);
		host.run(1);
	}
};

double span(const VGuiGraph* g)
{
	return g->maximum().x - g->minimum().x;
}

// y = scale x^2 / 100 at x = 0, 10, ..., 100, identified by id.
VGuiReference<VGuiGraphData> squares(int id, double scale = 0.8)
{
	auto data = made(new VGuiGraphData(11, id));
	for (int i = 0; i < 11; ++i)
		(*data)[i] = VGuiGraphPoint(10.0 * i, scale * i * i, 0.0);
	return data;
}
VGuiReference<VGuiGraphPlot> parabola(int id, double scale = 0.8)
{
	return made<VGuiGraphPlot>(new VGuiLinePlot(id, squares(id, scale).get()));
}

// After each change and a cursor step, the control's drawing (its picture
// below the cursor, and the cursor) equals the graph painted afresh.
TEST(GraphWindow, DrawsWhatTheGraphPaintsAfreshAfterEachChange)
{
	GraphWindow w;
	ASSERT_TRUE(WindowFrame::shared->opened);
	VGuiGraph* g = w.graph();
	const auto plot = parabola(7);
	auto* line = static_cast<VGuiLinePlot*>(plot.get());
	w.show(plot);
	w.use(new VGuiDataCursor(g, false, true));
	CPoint at(200, 150);
	w.press(at);
	const std::pair<const char*, std::function<void()>> changes[] = {
	    {"cursor only", [] {}},
	    {"data replaced", [&] { line->graphData(squares(7, 0.5).get(), false); }},
	    {"zoom", [&] { g->zoomIn(VGuiPoint(90, 50), VGuiPoint(320, 250)); }},
	    {"marker added",
	     [&] {
		     g->addMarker(made(new VGuiDataMarker(g, line, 6, (*line->graphData())[6])).get());
	     }},
	    {"plot colour",
	     [&] {
		     const VGuiColour red(255, 0, 0);
		     line->properties(made(new VGuiGraphPlotProperties(red, red, kLineSolid, 1.0)).get());
	     }},
	};
	for (const auto& [what, change] : changes)
	{
		change();
		at.x += 7;
		w.drag(at);
		OffscreenCanvas shown(width, height), fresh(width, height);
		// As a window's frame does: a new context draws aliased until set.
		for (OffscreenCanvas* canvas : {&shown, &fresh})
			canvas->get()->setDrawMode(kAntiAliasing);
		w.control->drawRect(shown.get(), w.control->getViewSize());
		g->paint(fresh.get(), g->extent());
		int differing = 0;
		for (int i = 0; i < width * height; ++i)
			differing += !(shown.pixel(i % width, i / width) == fresh.pixel(i % width, i / width));
		EXPECT_EQ(differing, 0) << what;
	}
	w.release(at);
}

// Hears the wheel before the cursor does, and passes it on or keeps it.
struct WheelElement : VGuiGraphElement
{
	void draw(CDrawContext*, const VGuiRect&) const override {}
	void realize(CDrawContext*) override {}
	bool onMouseWheelEvent(CPoint& p, const CMouseWheelAxis& a, const float& d, const CButtonState&,
	                       bool&, CView* v) override
	{
		heard = {p, a, d, v};
		return passes;
	}
	bool passes = true;
	std::tuple<CPoint, CMouseWheelAxis, float, CView*> heard;
};

TEST(GraphWindow, TheWheelReachesTheGraphAndIsHandledUnlessAnElementKeepsIt)
{
	GraphWindow w;
	const auto element = made(new WheelElement);
	w.graph()->addElement(element.get());
	for (const auto& [deltaX, deltaY, passes, axis] :
	     {std::tuple{0.0, -2.0, true, kMouseWheelAxisY},
	      std::tuple{1.5, 0.0, true, kMouseWheelAxisX},
	      std::tuple{0.0, 1.0, false, kMouseWheelAxisY}})
	{
		element->passes = passes;
		MouseWheelEvent e;
		e.mousePosition = CPoint(120, 90);
		e.deltaX = deltaX;
		e.deltaY = deltaY;
		w.deliver(e);
		const auto expected = std::tuple{e.mousePosition, axis, float(deltaX + deltaY), w.control};
		EXPECT_EQ(element->heard, expected);
		EXPECT_EQ(static_cast<bool>(e.consumed), passes) << "the graph's true is VSTGUI's handled";
	}
}

enum class Tool
{
	ZoomIn,
	ZoomOut,
	Pan
};

struct DragCase
{
	const char* name;
	Tool tool;
	CPoint from;
	CPoint to;
	bool escape;
	// The span of x afterwards over the span before; 0: the dragged ends.
	double spanRatio;
};

using GraphWindowDrags = ::testing::TestWithParam<DragCase>;

TEST_P(GraphWindowDrags, ZoomAndPanCursorsMoveTheRangesUnlessCancelled)
{
	const DragCase c = GetParam();
	GraphWindow w;
	VGuiGraph* g = w.graph();
	VGuiGraphCursor* cursor =
	    w.use(c.tool == Tool::ZoomIn    ? static_cast<VGuiGraphCursor*>(new VGuiZoomInCursor(g))
	          : c.tool == Tool::ZoomOut ? static_cast<VGuiGraphCursor*>(new VGuiZoomOutCursor(g))
	                                    : new VGuiPanCursor(g));
	g->autoScale(true, false);
	const VGuiGraphPoint from = w.at(c.from);
	const VGuiGraphPoint to = w.at(c.to);
	const double before = span(g);
	const double minimumBefore = g->minimum().x;
	// A zoom drag shows its rubber band while held, and only then.
	const bool band = c.tool != Tool::Pan && c.from != c.to;
	const CPoint bandAt{(c.from.x + c.to.x) / 2, c.from.y};
	w.dragFromTo(c.from, c.to, c.escape,
	             [&] { EXPECT_TRUE(!band || w.cursorNear(bandAt)) << "the rubber band"; });
	EXPECT_FALSE(cursor->isDragging());
	EXPECT_FALSE(w.listener.texts.empty());
	EXPECT_EQ(w.listener.ids.back(), -1);
	EXPECT_FALSE(band && w.cursorNear(bandAt)) << "the band is gone";
	const bool cancelled = c.escape && c.tool != Tool::ZoomIn;
	EXPECT_EQ(g->autoScale(), cancelled);
	if (cancelled)
	{
		EXPECT_EQ(span(g), before);
		EXPECT_EQ(g->minimum().x, minimumBefore);
	}
	else if (c.tool == Tool::Pan)
	{
		// The value under the press is under the release now, to a pixel.
		EXPECT_NEAR(w.at(c.to).x, from.x, before / g->plotArea().width());
		EXPECT_NEAR(span(g), before, 1e-9 * before);
	}
	else if (c.spanRatio == 0.0)
	{
		EXPECT_NEAR(g->minimum().x, std::min(from.x, to.x), 1e-9 * before);
		EXPECT_NEAR(g->maximum().x, std::max(from.x, to.x), 1e-9 * before);
	}
	else
	{
		// A click zooms about itself, to a whole number of pixels.
		EXPECT_NEAR(span(g) / before, c.spanRatio, 1.0 / g->plotArea().width());
		EXPECT_NEAR(g->maximum().x + g->minimum().x, 2 * from.x, 0.02 * before);
	}
}

INSTANTIATE_TEST_SUITE_P(
    , GraphWindowDrags,
    ::testing::Values(DragCase{"ZoomInDrag11By11", Tool::ZoomIn, {120, 80}, {131, 91}, false, 0.0},
                      DragCase{"ZoomInEscape", Tool::ZoomIn, {120, 80}, {260, 200}, true, 0.0},
                      DragCase{"ZoomInClick", Tool::ZoomIn, {200, 150}, {200, 150}, false, 0.707},
                      DragCase{"ZoomOutClick", Tool::ZoomOut, {200, 150}, {200, 150}, false, 1.414},
                      DragCase{"ZoomOutEscape", Tool::ZoomOut, {120, 80}, {260, 200}, true, 1.0},
                      DragCase{"PanDrag", Tool::Pan, {150, 100}, {230, 160}, false, 1.0},
                      DragCase{"PanEscape", Tool::Pan, {150, 100}, {230, 160}, true, 1.0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(GraphWindow, ADoubleClickNeitherStartsNorEndsADrag)
{
	GraphWindow w;
	auto* cursor = w.use(new VGuiZoomInCursor(w.graph()));
	const double before = span(w.graph());
	w.press({200, 150}, 2);
	w.release({200, 150}, 2);
	EXPECT_FALSE(cursor->isDragging());
	EXPECT_EQ(span(w.graph()), before);
	// The next plain click zooms as ever.
	w.press({200, 150});
	w.release({200, 150});
	EXPECT_NEAR(span(w.graph()) / before, 0.707, 1.0 / w.graph()->plotArea().width());
}

struct DataCase
{
	VGuiConstrainedDataCursorMode mode;
	bool interpolate;
	double x; // where the drag ends, in graph units
	double expectedX;
	double expectedY;
};

using GraphWindowDataCursor = ::testing::TestWithParam<DataCase>;

TEST_P(GraphWindowDataCursor, SnapsToTheDataOrInterpolatesOnTheLine)
{
	const DataCase c = GetParam();
	GraphWindow w;
	w.show(parabola(7));
	auto* cursor = w.use(new VGuiConstrainedDataCursor(w.graph(), c.interpolate, true, c.mode));
	w.dragFromTo(w.where(90.0, 50.0), w.where(c.x, 50.0), false, [&] {
		if (c.mode != VGuiConstrainNone)
			return;
		// Cross-hairs through the read point, moved with the ranges by a pan.
		const CPoint read = w.where(c.expectedX, c.expectedY);
		EXPECT_TRUE(w.cursorNear({w.graph()->plotArea().left + 3, read.y}));
		w.graph()->pan(VGuiPoint(200, 100), VGuiPoint(200, 120));
		EXPECT_TRUE(w.cursorNear({w.graph()->plotArea().left + 3, read.y + 20}));
	});
	ASSERT_FALSE(w.listener.points.empty());
	EXPECT_EQ(w.listener.ids.back(), 7);
	const double tolerance = c.interpolate ? 0.6 : 1e-9;
	EXPECT_NEAR(w.listener.points.back().x, c.expectedX, tolerance);
	EXPECT_NEAR(w.listener.points.back().y, c.expectedY, tolerance);
	EXPECT_EQ(cursor->focusId(), 7);
}

constexpr VGuiConstrainedDataCursorMode free = VGuiConstrainNone;

// Pressed at x 90 (y 64.8), dragged to x: the read-out, or with a constraint
// one coordinate of it held at the start's.
INSTANTIATE_TEST_SUITE_P(, GraphWindowDataCursor,
                         ::testing::Values(DataCase{free, false, 33.0, 30.0, 7.2},
                                           DataCase{free, false, 36.0, 40.0, 12.8},
                                           DataCase{free, false, 140.0, 100.0, 80.0},
                                           DataCase{free, true, 33.0, 33.0, 8.88},
                                           DataCase{VGuiConstrainFollowX, false, 33.0, 30.0, 64.8},
                                           DataCase{VGuiConstrainFollowY, false, 33.0, 90.0, 7.2}));

TEST(GraphWindow, TabMovesTheDataCursorToThePreviousPlotAndShiftTabToTheNext)
{
	GraphWindow w;
	w.graph()->autoScale(false, false);
	for (int id : {1, 2, 3})
		w.graph()->addPlot(parabola(id, 0.25 * id).get(), false);
	auto* cursor = w.use(new VGuiDataCursor(w.graph(), false, true));
	std::vector<int> visited{cursor->data()->identifier()};
	for (bool shift : {false, false, true, true, true})
	{
		w.tap(VirtualKey::Tab, 0, shift);
		visited.push_back(cursor->data()->identifier());
	}
	EXPECT_EQ(visited, (std::vector<int>{1, 3, 2, 3, 1, 2}));
}

constexpr int adjustPlot = 7;
// A character key (Xlib's None macro hides VirtualKey::None).
constexpr VirtualKey noVirtualKey{};

struct GainCase
{
	const char* name;
	char32_t held; // 0: none
	double toX;
	bool escape;
	double q;
};

using GraphWindowGain = ::testing::TestWithParam<GainCase>;

TEST_P(GraphWindowGain, DragsAPeakingSectionShownWhileDraggingAndHandedOnAtTheEnd)
{
	const GainCase c = GetParam();
	GraphWindow w;
	w.show(parabola(3));
	w.use(new VGuiDataGainCursor(w.graph(), w.control));
	const CPoint from = w.where(50.0, 20.0);
	const CPoint to = w.where(c.toX, 40.0);
	// A first section, whose Q the "6" key keeps.
	w.dragFromTo(from, w.where(90.0, 40.0));
	if (c.held)
		w.key(noVirtualKey, c.held, false, EventType::KeyDown);
	w.dragFromTo(from, to, c.escape, [&] {
		// The adjusted copy shows the section's gain at the centre (x 50, y 20).
		auto* adjusted = dynamic_cast<VGuiLinePlot*>(w.graph()->plotWithId(adjustPlot));
		ASSERT_NE(adjusted, nullptr);
		EXPECT_NEAR((*adjusted->graphData())[5].y, 40.0, 1e-9);
	});
	EXPECT_EQ(w.graph()->plotWithId(adjustPlot), nullptr);
	ASSERT_EQ(w.listener.edits.size(), 2u);
	EXPECT_EQ(w.listener.edits.back().second, c.escape);
	const auto* peak = dynamic_cast<VGuiParametricFilterSection*>(w.listener.edits[1].first.get());
	ASSERT_NE(peak, nullptr);
	EXPECT_NEAR(peak->centre, 50.0, 1e-9);
	EXPECT_NEAR(peak->gain, 2.0, 1e-9);
	EXPECT_NEAR(peak->q, c.q, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    , GraphWindowGain,
    ::testing::Values(GainCase{"Drag", 0, 70.0, false, 50.0 / (70.0 - 2500.0 / 70.0)},
                      GainCase{"EqualX", 0, 50.0, false, 15.0},
                      GainCase{"NarrowBandLimited", 0, 50.5, false, 15.0},
                      GainCase{"MHeld", 'M', 70.0, false, 15.0},
                      GainCase{"ZeroHeld", '0', 70.0, false, 0.0},
                      GainCase{"SixHeldKeepsTheLastQ", '6', 70.0, false,
                               50.0 / (90.0 - 2500.0 / 90.0)},
                      GainCase{"Escape", 0, 70.0, true, 50.0 / (70.0 - 2500.0 / 70.0)}),
    [](const auto& info) { return std::string(info.param.name); });

struct ShelfCase
{
	bool high;
	double fromY;
	double toY;
	double slope;
};

using GraphWindowShelf = ::testing::TestWithParam<ShelfCase>;

TEST_P(GraphWindowShelf, DragsAShelfWhoseSlopeIsLimitedTo9)
{
	const ShelfCase c = GetParam();
	GraphWindow w(VGuiGraphLogAxis, 1e-10, 1e5);
	w.show(parabola(3));
	w.use(new VGuiDataShelvingCursor(w.graph(), w.control, c.high));
	const CPoint from = w.where(50.0, c.fromY);
	const CPoint to = w.where(60.0, c.toY);
	w.dragFromTo(from, to, false, [&] {
		// Level at the corner on the side left alone, the pointer's on the shelved one.
		const double reach = (to.x - from.x) * (c.high ? 1.0 : -1.0);
		EXPECT_TRUE(w.cursorNear({from.x - reach / 2, from.y}));
		EXPECT_TRUE(w.cursorNear({from.x + reach, to.y}));
	});
	ASSERT_EQ(w.listener.edits.size(), 1u);
	const auto* shelf = dynamic_cast<VGuiShelvingFilterSection*>(w.listener.edits[0].first.get());
	ASSERT_NE(shelf, nullptr);
	EXPECT_NEAR(shelf->corner, 50.0, 1e-9);
	EXPECT_NEAR(shelf->slope, c.slope, 1e-6);
	EXPECT_EQ(shelf->highShelf, c.high);
}

INSTANTIATE_TEST_SUITE_P(, GraphWindowShelf,
                         ::testing::Values(ShelfCase{true, 1e-2, 10.0, 3.0},
                                           ShelfCase{false, 1e-2, 10.0, -3.0},
                                           ShelfCase{true, 1e-8, 1e4, 9.0},
                                           ShelfCase{true, 1e4, 1e-8, -9.0}));

struct MeasureCase
{
	const char* name;
	bool integral; // otherwise the difference
	VGuiGraphAxisType yType;
	std::vector<double> path; // x of the press, then of each drag step
	double multiplier;        // 0: none
	double area;
	const char* ending; // of the difference's text
};

using GraphWindowMeasure = ::testing::TestWithParam<MeasureCase>;

// The data are 0.8 (x / 10)^2 at x = 0, 10, ..., 100.
TEST_P(GraphWindowMeasure, ReadsTheAreaOrTheDifferenceBetweenTheStartAndThePointer)
{
	const MeasureCase c = GetParam();
	GraphWindow w(c.yType, c.yType == VGuiGraphLinearAxis ? 0.0 : 0.01, 100.0);
	w.show(parabola(4));
	GuiIntegralCursorMultiplier multiplier(c.multiplier, false);
	if (c.multiplier > 0.0)
		w.graph()->integralCursorMultiplier(&multiplier);
	VGuiGraph* g = w.graph();
	w.use(c.integral ? static_cast<VGuiGraphCursor*>(new VGuiIntegralDataCursor(g, false, true))
	                 : new VGuiDifferentialDataCursor(g, false, true))
	    ->measurementMessages.link(&w.measured.member);
	w.press(w.where(c.path.front(), 50.0));
	for (size_t i = 1; i < c.path.size(); ++i)
		w.drag(w.where(c.path[i], 50.0));
	w.release(w.where(c.path.back(), 50.0));
	ASSERT_FALSE(w.measured.texts.empty());
	const std::string& text = w.measured.texts.back();
	EXPECT_EQ(std::count(text.begin(), text.end(), ','), 2) << text;
	if (c.integral)
		EXPECT_NEAR(w.measured.areas.back(), c.area, 1e-9);
	else
		EXPECT_EQ(text.substr(text.size() - std::string(c.ending).size()), c.ending) << text;
	w.graph()->integralCursorMultiplier(nullptr);
}

constexpr VGuiGraphAxisType linear = VGuiGraphLinearAxis;
constexpr VGuiGraphAxisType logarithmic = VGuiGraphLogAxis;
constexpr VGuiGraphAxisType powerDb = VGuiGraphPowerDecibelAxis;

INSTANTIATE_TEST_SUITE_P(
    , GraphWindowMeasure,
    ::testing::Values(
        // (7.2 + 12.8 + 20 + 28.8) times 30 / 4 points.
        MeasureCase{"Spacing", true, linear, {30.0, 45.0, 60.0}, 0.0, 68.8 * 7.5, ""},
        MeasureCase{"Backwards", true, linear, {60.0, 45.0, 30.0}, 0.0, 68.8 * 7.5, ""},
        MeasureCase{"Multiplier", true, linear, {30.0, 45.0, 60.0}, 2.0, 68.8 * 2.0, ""},
        MeasureCase{"OnePointWithMultiplier", true, linear, {30.0, 40.0, 30.0}, 2.0, 14.4, ""},
        MeasureCase{"OnePointWithoutIsNoWidth", true, linear, {30.0, 40.0, 30.0}, 0.0, 0.0, ""},
        MeasureCase{"LinearDifference", false, linear, {30.0, 45.0, 60.0}, 0.0, 0.0, ", 21.6 "},
        // 20 log10(7.2 / 28.8): the start over the current.
        MeasureCase{"LogDifference", false, logarithmic, {30.0, 60.0}, 0.0, 0.0, ", -12 dB"},
        MeasureCase{"PowerDifference", false, powerDb, {30.0, 60.0}, 0.0, 0.0, ", -6.02 dB"},
        MeasureCase{"LogZero", false, logarithmic, {0.0, 60.0}, 0.0, 0.0, ", <Can't display> "}),
    [](const auto& info) { return std::string(info.param.name); });

// A spectrum of 143 bins 0.7 apart (up to x = 99.4), y = 1 + x.
VGuiReference<VGuiGraphPlot> spectrum()
{
	auto data = made(new VGuiGraphData(143, 5));
	for (int i = 0; i < 143; ++i)
		(*data)[i] = VGuiGraphPoint(0.7 * i, 1.0 + 0.7 * i, 0.0);
	return made<VGuiGraphPlot>(new VGuiLinePlot(5, data.get()));
}

// f0 and the bins at 2, 3, ... times it that the data reach, ten entries at most.
std::vector<double> harmonicsOf(double f0)
{
	std::vector<double> found{f0};
	for (int k = 2; k <= 10 && k * f0 <= 0.7 * 142; ++k)
		found.push_back(0.7 * std::round(k * f0 / 0.7));
	return found;
}

// The fundamental's x, and how many entries the data hold.
using GraphWindowHarmonics = ::testing::TestWithParam<std::pair<double, int>>;

TEST_P(GraphWindowHarmonics, FindsTheMultiplesOfTheFundamentalAndReadsThemByDigitKeys)
{
	GraphWindow w;
	w.show(spectrum());
	auto* cursor = w.use(new VGuiHarmonicDataCursor(w.graph(), false));
	const auto [fundamental, entries] = GetParam();
	w.press(w.where(fundamental, 50.0));
	w.drag(w.where(fundamental + 0.1, 50.0));
	const std::vector<double> expected = harmonicsOf(cursor->harmonic(0).x);
	EXPECT_NEAR(cursor->harmonic(0).x, fundamental, 0.35);
	ASSERT_EQ(cursor->harmonicCount(), entries);
	for (int k = 0; k < cursor->harmonicCount(); ++k)
		EXPECT_NEAR(cursor->harmonic(k).x, expected[k], 1e-9) << "harmonic " << k + 1;
	// "2".."9" and "0" read harmonics 2..10 while held; keys of missing ones send nothing.
	for (char32_t digit : {U'2', U'3', U'9', U'0'})
	{
		const int entry = digit == U'0' ? 9 : static_cast<int>(digit - U'1');
		const size_t heard = w.listener.points.size();
		w.key(noVirtualKey, digit, false, EventType::KeyDown);
		if (entry < cursor->harmonicCount())
			EXPECT_NEAR(w.listener.points.back().x, expected[entry], 1e-9);
		else
			EXPECT_EQ(w.listener.points.size(), heard);
		w.key(noVirtualKey, digit, false, EventType::KeyUp);
		EXPECT_NEAR(w.listener.points.back().x, expected[0], 1e-9);
	}
	w.release(w.where(fundamental + 0.1, 50.0));
}

INSTANTIATE_TEST_SUITE_P(, GraphWindowHarmonics,
                         ::testing::Values(std::pair{7.0, 10}, std::pair{33.0, 3},
                                           std::pair{90.0, 1}));

// A point inside the marker's hit rectangle, searched over its extent.
std::optional<CPoint> pointOn(const VGuiGraphMarker* marker)
{
	const VGuiRect r = marker->extent();
	for (double y = r.top; y < r.bottom; y += 1.0)
		for (double x = r.left; x < r.right; x += 1.0)
			if (marker->contains(VGuiPoint(x, y)))
				return CPoint(x, y);
	return std::nullopt;
}

struct MarkerCase
{
	const char* name;
	VGuiGraphMarkerType type;
	double fromX;
	double toX;
};

using GraphWindowMarkers = ::testing::TestWithParam<MarkerCase>;

TEST_P(GraphWindowMarkers, MarkerCursorsPinMarkersThatTheEraseCursorRemoves)
{
	const MarkerCase c = GetParam();
	GraphWindow w;
	w.show(parabola(7));
	VGuiGraph* g = w.graph();
	using Cursor = VGuiGraphCursor*;
	w.use(c.type == VGuiDataMarkerType ? Cursor(new VGuiMarkerDataCursor(g, false, true))
	      : c.type == VGuiHarmonicDataMarkerType
	          ? Cursor(new VGuiMarkerHarmonicDataCursor(g, false))
	      : c.type == VGuiIntegralDataMarkerType
	          ? Cursor(new VGuiMarkerIntegralDataCursor(g, false, true))
	          : Cursor(new VGuiMarkerDifferentialDataCursor(g, false, true)));
	for (bool escape : {true, false})
		w.dragFromTo(w.where(c.fromX, 50.0), w.where(c.toX, 50.0), escape,
		             [&] { EXPECT_EQ(g->markerWithId(0), nullptr) << "only a release pins"; });
	VGuiGraphMarker* marker = g->markerWithId(0);
	ASSERT_NE(marker, nullptr);
	EXPECT_EQ(marker->type(), c.type);
	EXPECT_EQ(marker->index(), static_cast<int>(c.toX / 10.0 + 0.5));
	EXPECT_EQ(marker->extent().intersect(w.graph()->extent()), marker->extent())
	    << "the read-out stays in view";
	// The cross on the marked point, in the cursor's colour by default.
	const double y = 0.8 * (c.toX / 10.0) * (c.toX / 10.0);
	EXPECT_TRUE(w.cursorNear(w.where(std::round(c.toX / 10.0) * 10.0, y)));
	EXPECT_TRUE(c.type != VGuiHarmonicDataMarkerType || w.cursorNear(w.where(3.0 * c.toX, 9.0 * y)))
	    << "the third harmonic's cross";

	const auto copy = made<VGuiGraphMarker>(marker->copy());
	const VGuiRect shown = marker->extent();
	const CPoint onBox = pointOn(marker).value_or(CPoint(-1, -1));
	w.use(new VGuiMarkerEraseDataCursor(w.graph(), false, true));
	// Beside the box, or cancelled: the marker stays.
	w.dragFromTo(w.where(5.0, 95.0), w.where(5.0, 95.0));
	w.dragFromTo(onBox, onBox, true);
	EXPECT_NE(w.graph()->markerWithId(0), nullptr);
	w.dragFromTo(onBox, onBox);
	EXPECT_EQ(w.graph()->markerWithId(0), nullptr);
	w.graph()->addMarker(copy.get());
	w.host.run(1);
	EXPECT_EQ(copy->extent(), shown) << "the copy reads the same";
}

INSTANTIATE_TEST_SUITE_P(
    , GraphWindowMarkers,
    ::testing::Values(MarkerCase{"Data", VGuiDataMarkerType, 90.0, 30.0},
                      MarkerCase{"DataAtTheCorner", VGuiDataMarkerType, 50.0, 100.0},
                      MarkerCase{"Harmonic", VGuiHarmonicDataMarkerType, 90.0, 20.0},
                      MarkerCase{"Integral", VGuiIntegralDataMarkerType, 30.0, 60.0},
                      MarkerCase{"Differential", VGuiDifferentialDataMarkerType, 60.0, 20.0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(GraphWindow, TheBrokerMakesEachKindOfMarkerAndNothingElse)
{
	GraphWindow w;
	EXPECT_EQ(VGuiNewGraphMarkerBroker::create(nullptr, VGuiDataMarkerType), nullptr);
	for (int type = 0; type <= 5; ++type)
	{
		const auto marker = made(
		    VGuiNewGraphMarkerBroker::create(w.graph(), static_cast<VGuiGraphMarkerType>(type)));
		EXPECT_EQ(marker ? int(marker->type()) : 0, type >= 1 && type <= 4 ? type : 0);
	}
}

} // namespace
} // namespace velora_test
