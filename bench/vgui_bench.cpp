// The graph toolkit's per-point work against plain loops doing the same
// arithmetic (the floor): VGuiCoOrdinateTransform::map over 10^6 points
// against six coefficients in locals, and VGuiGfxPolylineBuilder clipping a
// random walk of 10^6 segments against an inline Liang-Barsky clip that
// appends to one flat array and records where each polyline starts. The
// ratios of the times are printed at the end.
#include "vgui/vguicoordinatetransform.h"
#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxpolylinebuilder.h"

#include "time_reporter.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

namespace {

constexpr int kPoints = 1000000;
const VGuiRect kClip(0, 0, 100, 100);

// A random walk that wanders in and out of the clip rectangle.
const std::vector<VGuiPoint>& walk()
{
	static const std::vector<VGuiPoint> points = [] {
		std::mt19937 rng(5);
		std::uniform_real_distribution<double> step(-4.0, 4.0);
		std::vector<VGuiPoint> p(kPoints + 1);
		VGuiPoint at(50, 50);
		for (VGuiPoint& q : p)
		{
			at = VGuiPoint(std::clamp(at.x + step(rng), -40.0, 140.0),
			               std::clamp(at.y + step(rng), -40.0, 140.0));
			q = at;
		}
		return p;
	}();
	return points;
}

VGuiCoOrdinateTransform graphTransform()
{
	VGuiCoOrdinateTransform t;
	t.translate(-20, 3).scale(4.5, -2.25).rotate(0.3).translate(400, 300);
	return t;
}

void BM_TransformMap(benchmark::State& state)
{
	const VGuiCoOrdinateTransform t = graphTransform();
	const std::vector<VGuiPoint>& in = walk();
	std::vector<VGuiPoint> out(in.size());
	for (auto _ : state)
	{
		for (size_t i = 0; i < in.size(); ++i)
			out[i] = t.map(in[i]);
		benchmark::DoNotOptimize(out.data());
		benchmark::ClobberMemory();
	}
	state.SetItemsProcessed(state.iterations() * int64_t(in.size()));
}

void BM_PlainMap(benchmark::State& state)
{
	double m[6];
	graphTransform().getMatrix(m, true);
	const std::vector<VGuiPoint>& in = walk();
	std::vector<VGuiPoint> out(in.size());
	for (auto _ : state)
	{
		const double a = m[0], b = m[1], c = m[2], d = m[3], e = m[4], f = m[5];
		for (size_t i = 0; i < in.size(); ++i)
			out[i] = VGuiPoint(a * in[i].x + c * in[i].y + e, b * in[i].x + d * in[i].y + f);
		benchmark::DoNotOptimize(out.data());
		benchmark::ClobberMemory();
	}
	state.SetItemsProcessed(state.iterations() * int64_t(in.size()));
}

void BM_PolylineBuilder(benchmark::State& state)
{
	const std::vector<VGuiPoint>& in = walk();
	const VGuiColour green(0, 255, 0);
	int polylines = 0;
	for (auto _ : state)
	{
		VGuiGfxPolylineBuilder builder(kPoints + 1, green, green, VSTGUI::kLineSolid, 1.0);
		builder.moveTo(in[0]);
		for (size_t i = 1; i < in.size(); ++i)
			builder.lineTo(in[i], kClip);
		OsiList list;
		builder.putPolylines(list, false);
		polylines = list.count();
		while (void* p = list.removeFirst())
			static_cast<VGuiGfxPolyline*>(p)->release();
	}
	state.counters["polylines"] = polylines;
	state.SetItemsProcessed(state.iterations() * int64_t(in.size()));
}

// Liang-Barsky on [t0, t1] for p·t <= q.
inline bool narrow(double p, double q, double& t0, double& t1)
{
	if (p == 0.0)
		return q >= 0.0;
	const double t = q / p;
	if (p < 0.0)
	{
		if (t > t1)
			return false;
		t0 = std::max(t0, t);
	}
	else
	{
		if (t < t0)
			return false;
		t1 = std::min(t1, t);
	}
	return true;
}

void BM_PlainClipAndAppend(benchmark::State& state)
{
	const std::vector<VGuiPoint>& in = walk();
	std::vector<VGuiPoint> out;
	std::vector<size_t> starts;
	for (auto _ : state)
	{
		out.clear();
		starts.clear();
		out.reserve(in.size() * 2);
		for (size_t i = 1; i < in.size(); ++i)
		{
			const VGuiPoint s = in[i - 1];
			const VGuiPoint d = in[i] - s;
			double t0 = 0.0;
			double t1 = 1.0;
			if (!narrow(-d.x, s.x - kClip.left, t0, t1) ||
			    !narrow(d.x, kClip.right - s.x, t0, t1) || !narrow(-d.y, s.y - kClip.top, t0, t1) ||
			    !narrow(d.y, kClip.bottom - s.y, t0, t1))
				continue;
			if (t0 > 0.0 || starts.empty())
			{
				starts.push_back(out.size());
				out.push_back(s + d * t0);
			}
			out.push_back(t1 < 1.0 ? s + d * t1 : in[i]);
		}
		benchmark::DoNotOptimize(out.data());
		benchmark::DoNotOptimize(starts.data());
	}
	state.counters["polylines"] = double(starts.size());
	state.SetItemsProcessed(state.iterations() * int64_t(in.size()));
}

void printRatio(const TimeReporter& reporter, const char* what, const char* ours, const char* floor,
                double goal)
{
	const double a = reporter.nanoseconds(ours);
	const double b = reporter.nanoseconds(floor);
	if (b > 0)
		std::printf("  %-34s %5.2fx  (%.2f vs %.2f ms; goal %.1fx)\n", what, a / b, a / 1e6,
		            b / 1e6, goal);
}

} // namespace

BENCHMARK(BM_TransformMap);
BENCHMARK(BM_PlainMap);
BENCHMARK(BM_PolylineBuilder);
BENCHMARK(BM_PlainClipAndAppend);

int main(int argc, char** argv)
{
	benchmark::Initialize(&argc, argv);
	TimeReporter reporter;
	benchmark::RunSpecifiedBenchmarks(&reporter);
	std::printf("\nTime against the plain loop (lower is better):\n");
	printRatio(reporter, "map 10^6 points", "BM_TransformMap", "BM_PlainMap", 1.5);
	printRatio(reporter, "build from 10^6 clipped segments", "BM_PolylineBuilder",
	           "BM_PlainClipAndAppend", 3.0);
	benchmark::Shutdown();
	return 0;
}
