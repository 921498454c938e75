// How the processor forms its two outputs from an input sample, its
// low-passed copy and the two gains at the sample's angle.
#pragma once

#include "velora_law.h"

namespace Steinberg {
namespace Vst {

// Beyond +-30 degrees the far channel carries the low-passed copy, scaled by
// the law's extra factor (its gain there is negative: a darkened,
// phase-inverted crosstalk); the near one, and both within +-30, carry the
// input. A NaN angle fails both tests and takes the plain input. T is double
// or a GCC vector of doubles, chosen lane by lane with the same roundings.
struct PanOutput
{
	static constexpr double nearLimit = 30.0;

	template <class T> [[gnu::always_inline]] static T left(T s, T f, T angle, T gainL)
	{
		return angle > nearLimit ? f * gainL * VeloraLaw::gain : s * gainL;
	}
	template <class T> [[gnu::always_inline]] static T right(T s, T f, T angle, T gainR)
	{
		return angle < -nearLimit ? f * gainR * VeloraLaw::gain : s * gainR;
	}
};

} // namespace Vst
} // namespace Steinberg
