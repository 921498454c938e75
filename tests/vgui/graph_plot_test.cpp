// Plots drawn into a real offscreen VSTGUI context: the pixels of a line lie
// where the axes' mapping puts the data, nothing is drawn outside the plot
// area, and scatter markers sit on the visible points only.
#include "graph_host.h"
#include "offscreen_canvas.h"

#include "vgui/vguigfxpolyline.h"
#include "vgui/vguilineplot.h"
#include "vgui/vguipolylinedecimator.h"
#include "vgui/vguiscatterplot.h"
#include "vgui/vguisimplescatterplotmarker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace velora_test {
namespace {

// A graph of 0 .. 10 on both axes, shown by a recording view.
struct PlotFixture
{
	PlotFixture()
	{
		view.show(graph.get());
		graph->autoScale(false, false);
		graph->range({10, 10, 0}, {0, 0, 0}, {});
	}

	VGuiReference<VGuiGraphData> data(std::initializer_list<VGuiGraphPoint> points)
	{
		auto d = made(new VGuiGraphData(static_cast<int>(points.size()), 1));
		int i = 0;
		for (const VGuiGraphPoint& p : points)
			(*d)[i++] = p;
		return d;
	}

	// The pixels, by centre, that the plot colours (green, unlike the grey
	// and black of the frame, grid and background).
	std::vector<VGuiPoint> greenPixels()
	{
		OffscreenCanvas canvas(400, 300);
		graph->paint(canvas.get(), graph->extent());
		std::vector<VGuiPoint> found;
		for (int y = 0; y < canvas.height(); ++y)
			for (int x = 0; x < canvas.width(); ++x)
			{
				const VGuiColour c = canvas.pixel(x, y);
				if (c.green > 60 && c.green > 2 * c.red)
					found.push_back({x + 0.5, y + 0.5});
			}
		return found;
	}

	VGuiPoint screen(const VGuiGraphPoint& g) const
	{
		VGuiPoint p;
		graph->map(p, g, true);
		return p;
	}

	RecordingView view;
	VGuiReference<VGuiGraph> graph = linearGraph();
};

double distanceToSegment(const VGuiPoint& p, const VGuiPoint& a, const VGuiPoint& b)
{
	const VGuiPoint ab = b - a;
	const double t = std::clamp(
	    ((p.x - a.x) * ab.x + (p.y - a.y) * ab.y) / (ab.x * ab.x + ab.y * ab.y), 0.0, 1.0);
	const VGuiPoint q = a + ab * t;
	return std::hypot(p.x - q.x, p.y - q.y);
}

TEST(VGuiLinePlot, DrawsWhereTheAxesMapTheDataClippedToThePlotArea)
{
	PlotFixture f;
	auto plot =
	    made(new VGuiLinePlot(1, f.data({{1, 2, 0}, {9, 7, 0}, {15, 12, 0}, {5, -10, 0}}).get()));
	f.graph->addPlot(plot.get(), false);
	// The segments cut at x = 10 and y = 0: one whole, one leaving, one passing a corner.
	const VGuiGraphPoint kept[][2] = {{{1, 2, 0}, {9, 7, 0}},
	                                  {{9, 7, 0}, {10, 7 + 5.0 / 6, 0}},
	                                  {{10, 1, 0}, {105.0 / 11, 0, 0}}};
	const std::vector<VGuiPoint> pixels = f.greenPixels();
	const VGuiPoint from = f.screen(kept[0][0]);
	const VGuiPoint to = f.screen(kept[0][1]);
	EXPECT_GE(pixels.size(), static_cast<size_t>(std::hypot(to.x - from.x, to.y - from.y)));
	const auto onKept = [&](const VGuiPoint& p) {
		return std::any_of(std::begin(kept), std::end(kept), [&](const auto& s) {
			return distanceToSegment(p, f.screen(s[0]), f.screen(s[1])) <= 1.0;
		});
	};
	for (const VGuiPoint& p : pixels)
		ASSERT_TRUE(onKept(p)) << p.x << "," << p.y;
	const VGuiRect bound = VGuiGfxObject::grown(f.graph->plotArea(), 2.0);
	EXPECT_EQ(plot->extent().join(bound), bound) << "the extent is the clipped line's";
}

TEST(VGuiLinePlot, DrawsNoLineForOnePointOrForSegmentsOutOfRange)
{
	for (auto points : {std::initializer_list<VGuiGraphPoint>{{5, 5, 0}},
	                    std::initializer_list<VGuiGraphPoint>{{11, 1, 0}, {20, 9, 0}}})
	{
		PlotFixture f;
		auto plot = made(new VGuiLinePlot(1, f.data(points).get()));
		f.graph->addPlot(plot.get(), false);
		EXPECT_TRUE(plot->extent().isNull());
		EXPECT_TRUE(f.greenPixels().empty());
	}
}

TEST(VGuiLinePlot, RedrawsWhenGivenTheDataItAlreadyHas)
{
	PlotFixture f;
	auto data = f.data({{1, 1, 0}, {9, 9, 0}});
	auto plot = made(new VGuiLinePlot(1, data.get()));
	f.graph->addPlot(plot.get(), false);
	f.view.invalidated.clear();
	(*data)[1] = VGuiGraphPoint(9, 1, 0);
	EXPECT_FALSE(plot->graphData(data.get(), false));
	ASSERT_EQ(f.view.invalidated.size(), 1u);
	EXPECT_EQ(plot->extent().top, f.screen({9, 1, 0}).y);
}

TEST(VGuiScatterPlot, MarksTheVisiblePointsOnly)
{
	PlotFixture f;
	const VGuiGraphPoint inside[] = {{2, 3, 0}, {8, 6, 0}};
	auto marker = made(new VGuiSimpleScatterPlotMarker(VGuiScatterSquare, 6));
	auto plot = made(
	    new VGuiScatterPlot(1, f.data({inside[0], {12, 5, 0}, inside[1]}).get(), marker.get()));
	f.graph->addPlot(plot.get(), false);
	const std::vector<VGuiPoint> pixels = f.greenPixels();
	for (const VGuiPoint& p : pixels)
	{
		const bool nearOne =
		    std::any_of(std::begin(inside), std::end(inside), [&](const VGuiGraphPoint& g) {
			    const VGuiPoint s = f.screen(g);
			    return std::fabs(p.x - s.x) <= 4 && std::fabs(p.y - s.y) <= 4;
		    });
		ASSERT_TRUE(nearOne) << p.x << "," << p.y;
	}
	// Two filled 6-pixel squares.
	EXPECT_GE(pixels.size(), 2u * 36u);
}

struct ThinningCase
{
	std::vector<VGuiPoint> line; // a move to the first point, lines on
	const char* kept;
};

const ThinningCase kThinning[] = {
    // Whole columns apart: everything stays.
    {{{0.5, 5}, {1.5, 6}, {2.5, 4}}, "0.5,5 1.5,6 2.5,4"},
    // Within a column: the first, lowest, highest and last, in order.
    {{{0.1, 5}, {0.2, 9}, {0.3, 1}, {0.4, 7}, {0.5, 3}, {0.9, 4}, {1.2, 5}},
     "0.1,5 0.2,9 0.3,1 0.9,4 1.2,5"},
    // A last point that is also the lowest is kept once.
    {{{3.0, 5}, {3.5, 8}, {3.7, 2}}, "3,5 3.5,8 3.7,2"},
};

TEST(VGuiPolylineDecimator, KeepsTheExtremesOfEachPixelColumn)
{
	for (const ThinningCase& c : kThinning)
	{
		VGuiGfxPolylineBuilder builder(100, VGuiColour(), VGuiColour(), VSTGUI::kLineSolid, 1);
		VGuiPolylineDecimator line(builder);
		line.moveTo(c.line[0]);
		for (size_t i = 1; i < c.line.size(); ++i)
			line.lineTo(c.line[i]);
		line.finish();
		VGuiGfxGroup group;
		group.takePolylines(builder, false);
		std::ostringstream kept;
		group.list().forEach([&](VGuiGfxObject* o) {
			auto* polyline = static_cast<VGuiGfxPolyline*>(o);
			for (int i = 0; i < polyline->count(); ++i)
				kept << (i ? " " : "") << polyline->point(i).x << "," << polyline->point(i).y;
		});
		EXPECT_EQ(kept.str(), c.kept);
	}
}

} // namespace
} // namespace velora_test
