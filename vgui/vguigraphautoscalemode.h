// Which bounds of the axes' ranges an automatic rescale may move: each axis's
// range may grow to take in more data, and shrink to fit less.
#pragma once

#include <cstdint>

using VGuiGraphAutoScaleMode = uint32_t;

enum : VGuiGraphAutoScaleMode
{
	VGuiGraphGrowX = 1,
	VGuiGraphGrowY = 2,
	VGuiGraphGrowZ = 4,
	VGuiGraphShrinkX = 8,
	VGuiGraphShrinkY = 16,
	VGuiGraphShrinkZ = 32,
	VGuiGraphScaleAll = 63,
	// Given to a zoom to all: use the graph's own mode instead.
	VGuiGraphUseStoredMode = 64
};
