#include "stereo_stats.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace velora_render {

void StereoStats::add(const float* left, const float* right, int frames)
{
	// Sums per block first, so that an hour of samples adds up in double
	// without the small terms vanishing against a large running total.
	double blockSquares[2] = {0.0, 0.0};
	double blockProducts = 0.0;
	for (int i = 0; i < frames; ++i)
	{
		const double l = left[i];
		const double r = right[i];
		peaks[0] = std::max(peaks[0], std::fabs(l));
		peaks[1] = std::max(peaks[1], std::fabs(r));
		blockSquares[0] += l * l;
		blockSquares[1] += r * r;
		blockProducts += l * r;
	}
	squares[0] += blockSquares[0];
	squares[1] += blockSquares[1];
	products += blockProducts;
	count += frames;
}

double StereoStats::rms(int channel) const
{
	return count > 0 ? std::sqrt(squares[channel] / static_cast<double>(count)) : 0.0;
}

std::optional<double> StereoStats::correlation() const
{
	if (squares[0] <= 0.0 || squares[1] <= 0.0)
		return std::nullopt;
	return products / std::sqrt(squares[0] * squares[1]);
}

std::string dbfs(double level)
{
	if (!(level > 0.0))
		return "-inf";
	char text[32];
	std::snprintf(text, sizeof text, "%.2f", 20.0 * std::log10(level));
	return text;
}

} // namespace velora_render
