#include "power_averager.h"

#include <algorithm>
#include <cmath>

namespace velora_spectrum {
namespace {

// The periodic Hann window: frames overlapping by half sum to a constant.
std::vector<double> hannWindow(int n)
{
	std::vector<double> w(static_cast<std::size_t>(n));
	for (int i = 0; i < n; ++i)
		w[static_cast<std::size_t>(i)] = 0.5 - 0.5 * std::cos(2.0 * M_PI * i / n);
	return w;
}

} // namespace

PowerAverager::PowerAverager(int fftSize, int channels)
: size(fftSize),
  channelCount(channels),
  window(hannWindow(fftSize)),
  powerSums(static_cast<std::size_t>(channels + channels % 2) *
            static_cast<std::size_t>(fftSize / 2 + 1))
{
	for (double w : window)
		windowSum += w;
	fourier.size(fftSize);
}

void PowerAverager::add(const float* interleaved)
{
	for (int c = 0; c < channelCount; c += 2)
		transformPair(interleaved, c, c + 1 < channelCount);
	++frameCount;
}

void PowerAverager::transformPair(const float* interleaved, int first, bool withSecond)
{
	// A channel without a partner is paired with silence, whose sums go to
	// the spare row at the end.
	static const float silence = 0.0f;
	OsiComplex* z = fourier.data();
	const float* x = interleaved + first;
	const float* y = withSecond ? x + 1 : &silence;
	const int yStride = withSecond ? channelCount : 0;
	for (int i = 0; i < size; ++i)
	{
		const double w = window[static_cast<std::size_t>(i)];
		z[i] = {w * x[i * channelCount], w * y[i * yStride]};
	}
	fourier.fourierTransform(true);

	// With z = x + i y for real x and y: X_k = (Z_k + conj Z_(N-k)) / 2 and
	// Y_k = (Z_k - conj Z_(N-k)) / 2i. The powers are kept four times over;
	// the scale in levelsDb takes that out.
	const int half = size / 2;
	double* sumX = powerSums.data() + static_cast<std::size_t>(first) * (half + 1);
	double* sumY = sumX + half + 1;
	const auto accumulate = [&](int k, const OsiComplex& a, const OsiComplex& b) {
		const double xr = a.re + b.re, xi = a.im - b.im;
		const double yr = a.im + b.im, yi = a.re - b.re;
		sumX[k] += xr * xr + xi * xi;
		sumY[k] += yr * yr + yi * yi;
	};
	accumulate(0, z[0], z[0]);
	for (int k = 1; k <= half; ++k)
		accumulate(k, z[k], z[size - k]);
}

bool PowerAverager::finite() const
{
	return std::all_of(powerSums.begin(), powerSums.end(),
	                   [](double p) { return std::isfinite(p); });
}

std::vector<double> PowerAverager::levelsDb(int channel) const
{
	const int half = size / 2;
	const double* sums = powerSums.data() + static_cast<std::size_t>(channel) * (half + 1);
	// A sine of amplitude A on bin k gives |X_k| = A * windowSum / 2, and
	// |X_k| is kept here as |2 X_k|^2: dividing by windowSum^2 reads A^2. DC
	// and Nyquist have no mirror image to add: their A^2 is a quarter of that.
	const double scale = 1.0 / (windowSum * windowSum * std::max(frameCount, 1));
	const double floor = std::pow(10.0, kFloorDb / 10.0);
	std::vector<double> levels(static_cast<std::size_t>(half + 1));
	for (int k = 0; k <= half; ++k)
	{
		const double edge = k == 0 || k == half ? 0.25 : 1.0;
		levels[static_cast<std::size_t>(k)] =
		    10.0 * std::log10(std::max(sums[k] * scale * edge, floor));
	}
	return levels;
}

} // namespace velora_spectrum
