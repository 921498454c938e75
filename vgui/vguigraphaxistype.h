// The kinds of axis that a graph control can be asked for.
#pragma once

#include <cstdint>

using VGuiGraphAxisType = int32_t;

enum : VGuiGraphAxisType
{
	VGuiGraphLinearAxis = 0,
	VGuiGraphLogAxis = 1,
	// Decibels of amplitude (20 log10) and of power (10 log10).
	VGuiGraphDecibelAxis = 2,
	VGuiGraphPowerDecibelAxis = 3
};
