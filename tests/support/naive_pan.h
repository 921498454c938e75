// A reference for the processor's per-block rendering, written the plain way:
// per sample, two lone spline evaluations, the filter and the branch. The
// processor's output must match it bit for bit.
#pragma once

#include "velora_law.h"

namespace velora_test {

inline void naivePan(Steinberg::Vst::VeloraLaw& law, double previous, double current,
                     const float* in, float* left, float* right, int n)
{
	using Steinberg::Vst::VeloraLaw;
	for (int i = 0; i < n; ++i)
	{
		const double angle = previous == current ? current : (i * current + (n - i) * previous) / n;
		const double s = in[i];
		const double f = law.filter().y(s);
		double a = angle;
		double gL = 0.0;
		VeloraLaw::spline_eval(1, &a, &gL);
		double b = -angle;
		double gR = 0.0;
		VeloraLaw::spline_eval(1, &b, &gR);
		if (angle < -30)
		{
			left[i] = static_cast<float>(s * gL);
			right[i] = static_cast<float>(f * gR * VeloraLaw::gain);
		}
		else if (angle > 30)
		{
			left[i] = static_cast<float>(f * gL * VeloraLaw::gain);
			right[i] = static_cast<float>(s * gR);
		}
		else
		{
			left[i] = static_cast<float>(s * gL);
			right[i] = static_cast<float>(s * gR);
		}
	}
}

} // namespace velora_test
