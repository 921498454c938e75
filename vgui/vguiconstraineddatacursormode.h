// What a constrained data cursor reads: the data point itself, or only one
// of its coordinates with the other held at the drag's start.
#pragma once

enum VGuiConstrainedDataCursorMode
{
	VGuiConstrainNone = 0,
	// The data's x, the start's y: a horizontal read-out.
	VGuiConstrainFollowX = 1,
	// The start's x, the data's y: a vertical read-out.
	VGuiConstrainFollowY = 2
};
