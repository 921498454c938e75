// Spline evaluation over a monotone sweep of 10^6 abscissae: the caller-held
// context of OsiCubicSplineInterpolator against GSL's natural cubic spline
// with its accelerator, for few and for many knots. The ratio of the times is
// printed at the end (goal: below 1).
#include "osi/numerics/osicubicsplineinterpolator.h"
#include "osi/numerics/osisplinevector.h"

#include "time_reporter.h"

#include <benchmark/benchmark.h>
#include <gsl/gsl_spline.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

const int kKnotCounts[] = {37, 10000};
constexpr int kSweep = 1000000;

struct Knots
{
	std::vector<double> x;
	std::vector<double> y;

	explicit Knots(int n)
	{
		for (int i = 0; i < n; ++i)
		{
			x.push_back(-90.0 + 180.0 * i / (n - 1));
			y.push_back(std::cos(x.back() * 0.02) + 0.1 * std::sin(x.back()));
		}
	}
	double at(int i) const { return x.front() + (x.back() - x.front()) * i / (kSweep - 1); }
};

void BM_OsiSpline(benchmark::State& state, int knots)
{
	const Knots k(knots);
	OsiSplineVector v(knots);
	std::copy(k.x.begin(), k.x.end(), v.abscissa());
	std::copy(k.y.begin(), k.y.end(), v.ordinate());
	OsiCubicSplineInterpolator spline(v);
	for (auto _ : state)
	{
		OsiCubicSplineContext context;
		double sum = 0.0;
		for (int i = 0; i < kSweep; ++i)
		{
			const double x = k.at(i);
			spline.findContext(x, context);
			sum += spline.evaluateContext(x, context);
		}
		benchmark::DoNotOptimize(sum);
	}
}

void BM_Gsl(benchmark::State& state, int knots)
{
	const Knots k(knots);
	gsl_spline* spline = gsl_spline_alloc(gsl_interp_cspline, knots);
	gsl_spline_init(spline, k.x.data(), k.y.data(), knots);
	gsl_interp_accel* accel = gsl_interp_accel_alloc();
	for (auto _ : state)
	{
		gsl_interp_accel_reset(accel);
		double sum = 0.0;
		for (int i = 0; i < kSweep; ++i)
			sum += gsl_spline_eval(spline, k.at(i), accel);
		benchmark::DoNotOptimize(sum);
	}
	gsl_interp_accel_free(accel);
	gsl_spline_free(spline);
}

std::string name(const char* what, int knots)
{
	return std::string(what) + "/knots:" + std::to_string(knots);
}

} // namespace

int main(int argc, char** argv)
{
	for (int knots : kKnotCounts)
	{
		benchmark::RegisterBenchmark(name("osi_spline_sweep", knots).c_str(), BM_OsiSpline, knots);
		benchmark::RegisterBenchmark(name("gsl_spline_sweep", knots).c_str(), BM_Gsl, knots);
	}
	benchmark::Initialize(&argc, argv);
	TimeReporter reporter;
	benchmark::RunSpecifiedBenchmarks(&reporter);
	std::printf("\nOsiCubicSplineInterpolator time / GSL time, sweep of %d points:\n", kSweep);
	for (int knots : kKnotCounts)
	{
		const double ours = reporter.nanoseconds(name("osi_spline_sweep", knots));
		const double gsl = reporter.nanoseconds(name("gsl_spline_sweep", knots));
		if (gsl > 0)
			std::printf("  %5d knots  %5.2fx  (%.2f vs %.2f ns per point)\n", knots, ours / gsl,
			            ours / kSweep, gsl / kSweep);
	}
	benchmark::Shutdown();
	return 0;
}
