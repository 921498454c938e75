#include "render/expected_render.h"

#include "support/naive_pan.h"

#include <algorithm>
#include <cmath>

namespace velora_test {

double sentDegrees(double degrees)
{
	const double normalised = (degrees - -90.0) / (90.0 - -90.0);
	return normalised * (90.0 - -90.0) + -90.0;
}

StereoSamples expectedRender(const std::vector<float>& input, int rate, int block,
                             const std::function<double(double seconds)>& degreesAt)
{
	Steinberg::Vst::VeloraLaw law(rate);
	StereoSamples out{std::vector<float>(input.size()), std::vector<float>(input.size())};
	double previous = sentDegrees(degreesAt(0.0));
	double current = previous;
	for (std::size_t start = 0; start < input.size(); start += static_cast<std::size_t>(block))
	{
		const int n = static_cast<int>(std::min<std::size_t>(block, input.size() - start));
		const double target = sentDegrees(degreesAt(static_cast<double>(start + n) / rate));
		previous = current;
		current = target;
		naivePan(law, previous, current, input.data() + start, out.left.data() + start,
		         out.right.data() + start, n);
	}
	return out;
}

double largestDifference(const std::vector<float>& a, const std::vector<float>& b)
{
	double worst = a.size() == b.size() ? 0.0 : INFINITY;
	for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
		worst = std::max(worst, std::fabs(static_cast<double>(a[i]) - b[i]));
	return worst;
}

} // namespace velora_test
