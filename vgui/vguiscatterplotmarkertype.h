// The stock shapes of scatter plots' markers.
#pragma once

enum VGuiScatterPlotMarkerType
{
	// A small filled disc in the line colour.
	VGuiScatterDot = 0,
	// Diagonals, and upright strokes.
	VGuiScatterCross = 1,
	VGuiScatterPlus = 2,
	// Outlined in the line colour, filled with the fill colour.
	VGuiScatterSquare = 3,
	VGuiScatterCircle = 4,
	VGuiScatterTriangle = 5
};
