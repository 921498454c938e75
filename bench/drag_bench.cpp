// One step of a data-cursor drag over a line plot of 65,536 points in a graph
// control on an 800 x 500 VSTGUI frame: the mouse move enters at the frame's
// platform entry (as a window hands it on), the cursor snaps to the data,
// the graph reports its invalid rectangle to the frame, and the frame
// repaints that rectangle into an offscreen (cairo) context, as a window
// does when it is asked to. Measured against a full repaint of the same
// frame in the same run after the whole graph changed: the goal is a step
// under a tenth of it. The step repaints the union of the old and the new
// cross-hairs, which span the plot area; the control copies its picture of
// the graph without the cursor there and draws only the cursor again. A
// cross-sized rectangle on the curve shows what a small change of the graph
// costs, where only the curve's segments that reach it are stroked.
#include "vgui/vguidatacursor.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguigraphcontroltypeinfo.h"
#include "vgui/vguilineplot.h"

#include "noisy_sine.h"
#include "time_reporter.h"

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/cviewcontainer.h"
#include "vstgui/lib/events.h"
#include "vstgui/lib/platform/iplatformframecallback.h"
#include "vstgui/lib/vstguiinit.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <memory>

namespace {

using namespace VSTGUI;

constexpr int kPoints = 65536;
constexpr double kWidth = 800;
constexpr double kHeight = 500;

// The window's content: it keeps what its views invalidate, as a window's
// frame does until it repaints.
class DirtyContainer : public CViewContainer
{
public:
	DirtyContainer() : CViewContainer(CRect(0, 0, kWidth, kHeight)) {}

	void invalidRect(const CRect& rect) override
	{
		if (dirty.isEmpty())
			dirty = rect;
		else
			dirty.unite(rect);
	}

	CRect dirty;
};

VGuiReference<VGuiGraphData> signal()
{
	return noisySine(kPoints);
}

// The frame, attached without a window, holding the graph control.
struct Scene
{
	Scene()
	{
		control->create(
		    VGuiGraphControlTypeInfo(VGuiGraphLinearAxis, VGuiGraphLinearAxis, "x", "y"), 1.0, 0.0,
		    1.2, -1.2, 1.0, 0.0);
		control->graph()->autoScale(false, false);
		control->graph()->addPlot(plot.get(), false);
		content->addView(control);
		frame->addView(content);
		frame->attached(frame);
		context->setDrawMode(kAntiAliasing);
	}
	~Scene() { frame->forget(); }

	// Installs a data cursor with cross-hairs and presses it in the middle
	// of the plot area.
	void beginDrag()
	{
		auto* cursor = new VGuiDataCursor(control->graph(), false, true);
		control->graph()->graphCursor(cursor);
		cursor->release();
		const VGuiRect area = control->graph()->plotArea();
		middle = CPoint((area.left + area.right) / 2, (area.top + area.bottom) / 2);
		MouseDownEvent down(middle, MouseButton::Left);
		enter(down);
		repaint();
	}
	void endDrag()
	{
		MouseUpEvent up(middle, MouseButton::Left);
		enter(up);
		repaint();
	}
	void enter(Event& e) { static_cast<IPlatformFrameCallback*>(frame)->platformOnEvent(e); }
	// Repaints what was invalidated, as the window would.
	void repaint()
	{
		context->beginDraw();
		frame->drawRect(context, content->dirty);
		context->endDraw();
		content->dirty = CRect();
	}

	CFrame* frame = new CFrame(CRect(0, 0, kWidth, kHeight), nullptr);
	DirtyContainer* content = new DirtyContainer;
	VGuiGraphControl* control =
	    new VGuiGraphControl(CRect(0, 0, kWidth, kHeight), nullptr, 0, nullptr);
	VGuiReference<VGuiGraphData> data = signal();
	VGuiReference<VGuiLinePlot> plot =
	    VGuiReference<VGuiLinePlot>::adopt(new VGuiLinePlot(1, data.get()));
	SharedPointer<COffscreenContext> context = COffscreenContext::create(CPoint(kWidth, kHeight));
	CPoint middle;
};

// Made and dropped by main, inside VSTGUI's lifetime.
Scene* current = nullptr;

Scene& scene()
{
	return *current;
}

// One drag step: the pointer moves one pixel to and fro along the data, the
// frame repaints what the graph invalidated.
void BM_DragStep(benchmark::State& state)
{
	Scene& s = scene();
	s.beginDrag();
	double area = 0.0;
	int step = 0;
	for (auto _ : state)
	{
		MouseMoveEvent move(s.middle + CPoint(++step % 2, 0), MouseButton::Left);
		s.enter(move);
		area += s.content->dirty.getWidth() * s.content->dirty.getHeight();
		s.repaint();
	}
	s.endDrag();
	state.counters["repainted px"] = area / double(state.iterations());
}

// The graph changed in a cursor's cross (13 pixels square) where it lies on
// the curve: what a small change costs.
void BM_CrossRepaint(benchmark::State& state)
{
	Scene& s = scene();
	VGuiPoint p;
	s.control->graph()->map(p, (*s.data)[kPoints / 3], true);
	VGuiGraph* graph = s.control->graph();
	for (auto _ : state)
	{
		graph->beginUpdate();
		graph->invalidateExtent(VGuiRect(p.x - 6, p.y - 6, p.x + 7, p.y + 7));
		graph->endUpdate();
		s.repaint();
	}
}

// The whole frame repainted after the whole graph changed: everything is
// drawn again.
void BM_FullRepaint(benchmark::State& state)
{
	Scene& s = scene();
	VGuiGraph* graph = s.control->graph();
	for (auto _ : state)
	{
		graph->beginUpdate();
		graph->invalidateExtent(graph->extent());
		graph->endUpdate();
		s.repaint();
	}
}

} // namespace

BENCHMARK(BM_DragStep);
BENCHMARK(BM_CrossRepaint);
BENCHMARK(BM_FullRepaint);

int main(int argc, char** argv)
{
	VSTGUI::init(nullptr);
	benchmark::Initialize(&argc, argv);
	auto s = std::make_unique<Scene>();
	current = s.get();
	TimeReporter reporter;
	benchmark::RunSpecifiedBenchmarks(&reporter);
	const double step = reporter.nanoseconds("BM_DragStep");
	const double cross = reporter.nanoseconds("BM_CrossRepaint");
	const double full = reporter.nanoseconds("BM_FullRepaint");
	if (full > 0)
	{
		std::printf("\nAgainst a full repaint of %d points on %gx%g (%.2f ms; goal under 0.1x):\n",
		            kPoints, kWidth, kHeight, full / 1e6);
		std::printf("  data-cursor drag step, cross-hairs over the plot area %6.3fx  (%.3f ms)\n",
		            step / full, step / 1e6);
		std::printf("  change of a cross-sized rectangle on the curve       %6.3fx  (%.3f ms)\n",
		            cross / full, cross / 1e6);
	}
	s.reset();
	benchmark::Shutdown();
	VSTGUI::exit();
	return 0;
}
