// What velora-render must produce, computed here from the pan law directly:
// per block, the pan angle at the block's end is sent; a changed angle glides
// across the block from the previous one, an unchanged one holds still. The
// start angle holds from the first sample.
#pragma once

#include <functional>
#include <vector>

namespace velora_test {

struct StereoSamples
{
	std::vector<float> left;
	std::vector<float> right;
};

// The angle as the processor gets it: degrees to the normalised value the
// host sends and back.
double sentDegrees(double degrees);

StereoSamples expectedRender(const std::vector<float>& input, int rate, int block,
                             const std::function<double(double seconds)>& degreesAt);

// The largest difference between two equally long sample runs.
double largestDifference(const std::vector<float>& a, const std::vector<float>& b);

} // namespace velora_test
