#include "spectral_peaks.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velora_spectrum {
namespace {

// The Hann window's transform, normalised to 1 at 0, d bins from its centre
// (|d| <= 1/2).
double hannLobe(double d)
{
	if (d == 0.0)
		return 1.0;
	return std::sin(M_PI * d) / (M_PI * d * (1.0 - d * d));
}

// The levels beside bin k. A real signal's spectrum mirrors about DC and
// Nyquist, so the bins there have their inner neighbour on both sides.
std::pair<double, double> neighbours(const std::vector<double>& db, std::size_t k)
{
	const std::size_t last = db.size() - 1;
	return {db[k > 0 ? k - 1 : 1], db[k < last ? k + 1 : last - 1]};
}

bool isLocalMaximum(const std::vector<double>& db, std::size_t k)
{
	const auto [left, right] = neighbours(db, k);
	return db[k] > left && db[k] >= right;
}

SpectralPeak interpolate(const ChannelSpectrum& spectrum, std::size_t k)
{
	const std::vector<double>& db = spectrum.levelDb;
	const auto [left, right] = neighbours(db, k);
	// Magnitude ratio of the larger neighbour to the peak bin, at most 1.
	const double ratio = std::pow(10.0, (std::max(left, right) - db[k]) / 20.0);
	const double offset = (right >= left ? 1.0 : -1.0) * (2.0 * ratio - 1.0) / (1.0 + ratio);
	return {(static_cast<double>(k) + offset) * spectrum.binWidthHz(),
	        db[k] - 20.0 * std::log10(hannLobe(offset))};
}

} // namespace

std::vector<SpectralPeak> findPeaks(const ChannelSpectrum& spectrum, int n)
{
	const std::vector<double>& db = spectrum.levelDb;
	std::vector<std::size_t> maxima;
	for (std::size_t k = 0; k < db.size(); ++k)
		if (isLocalMaximum(db, k))
			maxima.push_back(k);
	const auto count = std::min(maxima.size(), static_cast<std::size_t>(std::max(n, 0)));
	std::partial_sort(maxima.begin(), maxima.begin() + static_cast<std::ptrdiff_t>(count),
	                  maxima.end(), [&](std::size_t a, std::size_t b) { return db[a] > db[b]; });
	std::vector<SpectralPeak> peaks;
	for (std::size_t i = 0; i < count; ++i)
		peaks.push_back(interpolate(spectrum, maxima[i]));
	return peaks;
}

} // namespace velora_spectrum
