// A line plot of 65,536 points laid out and drawn by the graph toolkit on an
// 800 x 500 offscreen VSTGUI context (cairo), against two floors on the same
// context, clipped alike to the plot area: the same points mapped by a plain
// loop and drawn with one VSTGUI polygon call; and the same again, thinned
// in the loop as the plot thins them (the first, lowest, highest and last
// point of each pixel column), which shows what the toolkit itself costs. A
// full redraw of the whole graph (frame, grids, axes with their labels, the
// plot) is timed against the 16.7 ms of one frame at 60 Hz.
#include "vgui/vgui2dgraph.h"
#include "vgui/vguigraphdata.h"
#include "vgui/vguigraphpictureview.h"
#include "vgui/vguilinearaxis.h"
#include "vgui/vguilineplot.h"

#include "noisy_sine.h"
#include "time_reporter.h"

#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/vstguiinit.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace {

constexpr int kPoints = 65536;
constexpr double kWidth = 800;
constexpr double kHeight = 500;

template <typename T> VGuiReference<T> made(T* object)
{
	return VGuiReference<T>::adopt(object);
}

VGuiReference<VGuiGraphData> signal()
{
	return noisySine(kPoints);
}

// The graph, shown by an offscreen view, and a context to draw into.
struct Scene
{
	Scene()
	{
		graph->autoScale(false, false);
		graph->range({1, 1.2, 0}, {0, -1.2, 0}, {});
		graph->addPlot(plot.get(), false);
		context->setDrawMode(VSTGUI::kAntiAliasing);
	}

	VGuiReference<VGuiGraphData> data = signal();
	VGuiReference<VGuiGraphAxis> x = made<VGuiGraphAxis>(new VGuiLinearAxis(true));
	VGuiReference<VGuiGraphAxis> y = made<VGuiGraphAxis>(new VGuiLinearAxis(false));
	VGuiReference<VGuiGraph> graph =
	    made<VGuiGraph>(new VGui2dGraph(nullptr, x.get(), y.get(), nullptr));
	VGuiReference<VGuiLinePlot> plot = made(new VGuiLinePlot(1, data.get()));
	VSTGUI::SharedPointer<VGuiGraphPictureView> view =
	    VSTGUI::owned(new VGuiGraphPictureView(graph.get(), kWidth, kHeight));
	VSTGUI::SharedPointer<VSTGUI::COffscreenContext> context =
	    VSTGUI::COffscreenContext::create(VSTGUI::CPoint(kWidth, kHeight));
};

Scene& scene()
{
	static Scene s;
	return s;
}

// Lays the plot out again (the data changed) and draws it.
void BM_LinePlotRealizeAndDraw(benchmark::State& state)
{
	Scene& s = scene();
	const VSTGUI::CRect area = s.graph->plotArea().toCRect();
	for (auto _ : state)
	{
		s.plot->refresh(false);
		s.context->beginDraw();
		s.context->setClipRect(area);
		s.plot->draw(s.context, s.graph->extent());
		s.context->endDraw();
	}
	state.SetItemsProcessed(state.iterations() * kPoints);
}

// The plot area's mapping of x from 0 .. 1 and y from -1.2 .. 1.2, y upwards.
VSTGUI::CPoint plainMap(const VGuiRect& r, const VGuiGraphPoint& p)
{
	return VSTGUI::CPoint(r.left + r.width() * p.x, r.bottom - r.height() * (p.y + 1.2) / 2.4);
}

void drawPlain(VSTGUI::CDrawContext* context, const VGuiRect& area,
               const VSTGUI::CDrawContext::PointList& polyline)
{
	context->beginDraw();
	context->setClipRect(area.toCRect());
	context->setFrameColor(VSTGUI::CColor(0, 255, 0));
	context->setLineWidth(1.0);
	context->setLineStyle(VSTGUI::kLineSolid);
	context->drawPolygon(polyline, VSTGUI::kDrawStroked);
	context->endDraw();
}

// Every point mapped in a plain loop and drawn as one polyline.
void BM_PlainMapAndPolygon(benchmark::State& state)
{
	Scene& s = scene();
	const VGuiRect& area = s.graph->plotArea();
	const VGuiGraphPoint* points = s.data->data();
	VSTGUI::CDrawContext::PointList polyline(kPoints);
	for (auto _ : state)
	{
		for (int i = 0; i < kPoints; ++i)
			polyline[size_t(i)] = plainMap(area, points[i]);
		drawPlain(s.context, area, polyline);
	}
	state.SetItemsProcessed(state.iterations() * kPoints);
}

// The same, keeping of each pixel column's run of points the first, the
// lowest, the highest and the last, in their order.
void BM_PlainThinnedMapAndPolygon(benchmark::State& state)
{
	Scene& s = scene();
	const VGuiRect& area = s.graph->plotArea();
	const VGuiGraphPoint* points = s.data->data();
	VSTGUI::CDrawContext::PointList polyline;
	polyline.reserve(kPoints);
	for (auto _ : state)
	{
		polyline.clear();
		size_t low = 0;
		size_t high = 0;
		VSTGUI::CDrawContext::PointList column;
		auto flush = [&] {
			size_t keep[] = {low, high, column.size() - 1};
			std::sort(std::begin(keep), std::end(keep));
			size_t passed = 0;
			for (size_t k : keep)
			{
				if (k > passed)
					polyline.push_back(column[k]);
				passed = std::max(passed, k);
			}
		};
		for (int i = 0; i < kPoints; ++i)
		{
			const VSTGUI::CPoint p = plainMap(area, points[i]);
			if (column.empty() || std::floor(p.x) != std::floor(column[0].x))
			{
				if (!column.empty())
					flush();
				column.assign(1, p);
				polyline.push_back(p);
				low = high = 0;
				continue;
			}
			column.push_back(p);
			if (p.y < column[low].y)
				low = column.size() - 1;
			if (p.y > column[high].y)
				high = column.size() - 1;
		}
		flush();
		drawPlain(s.context, area, polyline);
	}
	state.counters["points drawn"] = double(polyline.size());
	state.SetItemsProcessed(state.iterations() * kPoints);
}

// Everything laid out again (as after a resize) and the whole graph painted.
void BM_FullRedraw(benchmark::State& state)
{
	Scene& s = scene();
	for (auto _ : state)
	{
		s.graph->beginUpdate();
		s.graph->signalChanges(VGuiGraphAllChanges);
		s.graph->endUpdate();
		s.context->beginDraw();
		s.graph->paint(s.context, s.graph->extent());
		s.context->endDraw();
	}
}

} // namespace

BENCHMARK(BM_LinePlotRealizeAndDraw);
BENCHMARK(BM_PlainMapAndPolygon);
BENCHMARK(BM_PlainThinnedMapAndPolygon);
BENCHMARK(BM_FullRedraw);

int main(int argc, char** argv)
{
	VSTGUI::init(nullptr);
	benchmark::Initialize(&argc, argv);
	TimeReporter reporter;
	benchmark::RunSpecifiedBenchmarks(&reporter);
	const double plot = reporter.nanoseconds("BM_LinePlotRealizeAndDraw");
	const double all = reporter.nanoseconds("BM_PlainMapAndPolygon");
	const double thinned = reporter.nanoseconds("BM_PlainThinnedMapAndPolygon");
	const double full = reporter.nanoseconds("BM_FullRedraw");
	std::printf("\nLine plot of %d points on %gx%g, laid out and drawn (%.2f ms), against:\n",
	            kPoints, kWidth, kHeight, plot / 1e6);
	if (all > 0)
		std::printf("  every point, plain loop, one polygon   %6.2fx  (%.2f ms; goal 2x)\n",
		            plot / all, all / 1e6);
	if (thinned > 0)
		std::printf("  thinned alike, plain loop, one polygon %6.2fx  (%.2f ms; goal 2x)\n",
		            plot / thinned, thinned / 1e6);
	if (full > 0)
		std::printf("Full redraw of the graph: %.2f ms (goal: under 16.7 ms, one frame at 60 Hz)\n",
		            full / 1e6);
	benchmark::Shutdown();
	VSTGUI::exit();
	return 0;
}
