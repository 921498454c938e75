// The ratio between two values read on an axis: on an axis whose values are
// decibel levels, the level difference times nepersPerDecibel through exp;
// on any other, to / from.
#pragma once

#include "vgui/vguidecibelaxis.h"

#include <cmath>

inline double VGuiAxisRatio(const VGuiGraphAxis* axis, double from, double to,
                            double nepersPerDecibel)
{
	const auto* decibels = dynamic_cast<const VGuiDecibelAxis*>(axis);
	if (decibels && decibels->linearDecibels)
		return std::exp((to - from) * nepersPerDecibel);
	return to / from;
}
