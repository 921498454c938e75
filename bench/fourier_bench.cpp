// OsiFourier against FFTW (estimate-mode plans, in place, double complex) at
// 1024, 4096 and 65536 points. Each iteration is a forward transform and an
// inverse one scaled by 1/N, so the data stay as they are and both sides do
// the same work; the ratio of the times is printed at the end (goal: at most
// 1.3), with the vector instructions that OsiFourier used.
#include "osi/numerics/osifourier.h"

#include "time_reporter.h"

#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <cstdio>
#include <map>
#include <random>
#include <string>

namespace {

const int kSizes[] = {1024, 4096, 65536};

void fillRandom(double* re, double* im, int stride, int n)
{
	std::mt19937 rng(3);
	std::uniform_real_distribution<double> uniform(-1.0, 1.0);
	for (int i = 0; i < n; ++i)
	{
		re[i * stride] = uniform(rng);
		im[i * stride] = uniform(rng);
	}
}

void BM_OsiFourier(benchmark::State& state, int n)
{
	OsiFourier f;
	f.size(n);
	fillRandom(&f.data()[0].re, &f.data()[0].im, 2, n);
	for (auto _ : state)
	{
		f.fourierTransform(true);
		f.fourierTransform(false);
		benchmark::DoNotOptimize(f.data()[n - 1].re);
	}
}

void BM_Fftw(benchmark::State& state, int n)
{
	fftw_complex* data = fftw_alloc_complex(n);
	fftw_plan forward = fftw_plan_dft_1d(n, data, data, FFTW_FORWARD, FFTW_ESTIMATE);
	fftw_plan backward = fftw_plan_dft_1d(n, data, data, FFTW_BACKWARD, FFTW_ESTIMATE);
	fillRandom(&data[0][0], &data[0][1], 2, n);
	const double scale = 1.0 / n;
	for (auto _ : state)
	{
		fftw_execute(forward);
		fftw_execute(backward);
		for (int i = 0; i < n; ++i)
		{
			data[i][0] *= scale;
			data[i][1] *= scale;
		}
		benchmark::DoNotOptimize(data[n - 1][0]);
	}
	fftw_destroy_plan(forward);
	fftw_destroy_plan(backward);
	fftw_free(data);
}

std::string name(const char* what, int n)
{
	return std::string(what) + "/" + std::to_string(n);
}

} // namespace

int main(int argc, char** argv)
{
	for (int n : kSizes)
	{
		benchmark::RegisterBenchmark(name("osi_fourier", n).c_str(), BM_OsiFourier, n);
		benchmark::RegisterBenchmark(name("fftw_estimate", n).c_str(), BM_Fftw, n);
	}
	benchmark::Initialize(&argc, argv);
	TimeReporter reporter;
	benchmark::RunSpecifiedBenchmarks(&reporter);
	const char* instructions[] = {"SSE2", "AVX2", "AVX-512"};
	std::printf("\nOsiFourier time / FFTW time (forward + inverse), OsiFourier with %s:\n",
	            instructions[static_cast<int>(OsiFourier::widestInstructions())]);
	for (int n : kSizes)
	{
		const double ours = reporter.nanoseconds(name("osi_fourier", n));
		const double fftw = reporter.nanoseconds(name("fftw_estimate", n));
		if (fftw > 0)
			std::printf("  %6d points  %5.2fx  (%.1f vs %.1f us)\n", n, ours / fftw, ours / 1e3,
			            fftw / 1e3);
	}
	benchmark::Shutdown();
	return 0;
}
