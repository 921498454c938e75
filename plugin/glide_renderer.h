// A block whose pan angle glides, rendered several samples at a time, bit for
// bit as one sample at a time.
#pragma once

#include "velora_law.h"

namespace Steinberg {
namespace Vst {

class GlideRenderer
{
public:
	// Renders count samples whose angle glides linearly from previous to one
	// step short of current (sample i at (i*current + (count-i)*previous) /
	// count): the filter on every sample, the two gains at each angle, the
	// outputs as PanOutput forms them. The filter keeps its history.
	using Kernel = void (*)(LowPassFilter& filter, double previous, double current, const float* in,
	                        float* left, float* right, int count);

	// One rendering, built for the baseline instruction set and for AVX2;
	// `fastest` is the build this machine runs best, picked once at load.
	static const Kernel plain;
	static const Kernel fastest;
};

} // namespace Vst
} // namespace Steinberg
