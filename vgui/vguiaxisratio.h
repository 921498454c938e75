// The ratio between two values read on an axis: on a decibel axis, the
// difference of their levels in the axis's own decibels (of power or of
// amplitude) times nepersPerDecibel through exp, so that a cursor dragged
// over D dB of the scale gives the same D dB whatever the values stand for;
// on any other, to / from.
#pragma once

#include "vgui/vguidecibelaxis.h"

#include <cmath>

inline double VGuiAxisRatio(const VGuiGraphAxis* axis, double from, double to,
                            double nepersPerDecibel)
{
	if (const auto* decibels = dynamic_cast<const VGuiDecibelAxis*>(axis))
		return std::exp((decibels->level(to) - decibels->level(from)) * nepersPerDecibel);
	return to / from;
}
