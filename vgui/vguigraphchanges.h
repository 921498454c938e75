// What changed on a graph since its last update: a bit set that tells its
// axes, grids and elements what to lay out again.
#pragma once

#include <cstdint>

using VGuiGraphChanges = uint32_t;

enum : VGuiGraphChanges
{
	VGuiGraphXRangeChanged = 1,
	VGuiGraphYRangeChanged = 2,
	VGuiGraphZRangeChanged = 4,
	VGuiGraphAxisReplaced = 8,
	// The extent, and with it the plot area, moved or was resized.
	VGuiGraphExtentChanged = 16,
	// Colours, fonts or line styles of the properties changed.
	VGuiGraphPropertiesChanged = 32,
	VGuiGraphAllChanges = 63
};
