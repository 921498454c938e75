// How a graph's keyboard focus moves over the data of its plots.
#pragma once

enum VGuiGraphFocusOperation
{
	// Back to the first plot's data (or the next that can take the focus).
	VGuiGraphFocusReset = 0,
	VGuiGraphFocusNext = 1,
	VGuiGraphFocusPrevious = 2
};
