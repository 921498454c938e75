// The spectrum analysis of one minute of 48 kHz stereo at N = 8192 against
// the same analysis done with FFTW (real-input transforms, estimate-mode
// plan): Hann-windowed frames overlapping by half, power summed per bin for
// each channel. Both read the same interleaved samples from memory; the ratio
// of the times is printed at the end (goal: at most 2).
#include "spectrum_analyser.h"

#include "time_reporter.h"

#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

namespace {

constexpr int kRate = 48000;
constexpr int kChannels = 2;
constexpr int kFrames = 60 * kRate;
constexpr int kSize = 8192;

const std::vector<float>& minuteOfNoise()
{
	static const std::vector<float> samples = [] {
		std::vector<float> s(static_cast<std::size_t>(kFrames) * kChannels);
		std::mt19937 rng(5);
		std::uniform_real_distribution<float> uniform(-1.0f, 1.0f);
		for (float& x : s)
			x = uniform(rng);
		return s;
	}();
	return samples;
}

void BM_SpectrumAnalyser(benchmark::State& state)
{
	const std::vector<float>& samples = minuteOfNoise();
	const velora_spectrum::SpectrumAnalyser analyser({kSize});
	for (auto _ : state)
		benchmark::DoNotOptimize(
		    analyser.analyse(samples.data(), kFrames, kChannels, kRate, "noise"));
}

void BM_Fftw(benchmark::State& state)
{
	const std::vector<float>& samples = minuteOfNoise();
	std::vector<double> window(kSize);
	for (int i = 0; i < kSize; ++i)
		window[i] = 0.5 - 0.5 * std::cos(2.0 * M_PI * i / kSize);
	double* in = fftw_alloc_real(kSize);
	fftw_complex* out = fftw_alloc_complex(kSize / 2 + 1);
	const fftw_plan plan = fftw_plan_dft_r2c_1d(kSize, in, out, FFTW_ESTIMATE);
	for (auto _ : state)
	{
		std::vector<double> power(static_cast<std::size_t>(kChannels) * (kSize / 2 + 1));
		for (int start = 0; start + kSize <= kFrames; start += kSize / 2)
			for (int c = 0; c < kChannels; ++c)
			{
				const float* x = samples.data() + static_cast<std::size_t>(start) * kChannels + c;
				for (int i = 0; i < kSize; ++i)
					in[i] = window[i] * x[i * kChannels];
				fftw_execute(plan);
				double* sum = power.data() + static_cast<std::size_t>(c) * (kSize / 2 + 1);
				for (int k = 0; k <= kSize / 2; ++k)
					sum[k] += out[k][0] * out[k][0] + out[k][1] * out[k][1];
			}
		for (double& p : power)
			p = 10.0 * std::log10(p + 1e-20);
		benchmark::DoNotOptimize(power.data());
	}
	fftw_destroy_plan(plan);
	fftw_free(out);
	fftw_free(in);
}

} // namespace

int main(int argc, char** argv)
{
	benchmark::RegisterBenchmark("spectrum_analyser", BM_SpectrumAnalyser);
	benchmark::RegisterBenchmark("fftw_estimate", BM_Fftw);
	benchmark::Initialize(&argc, argv);
	TimeReporter reporter;
	benchmark::RunSpecifiedBenchmarks(&reporter);
	const double ours = reporter.nanoseconds("spectrum_analyser");
	const double fftw = reporter.nanoseconds("fftw_estimate");
	if (fftw > 0)
		std::printf("\nSpectrum analysis time / FFTW time, one minute of 48 kHz stereo at N = %d:"
		            "\n  %5.2fx  (%.1f vs %.1f ms)\n",
		            kSize, ours / fftw, ours / 1e6, fftw / 1e6);
	benchmark::Shutdown();
	return 0;
}
