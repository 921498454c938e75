// The colour in which every cursor draws its figures.
#pragma once

#include "vgui/vguicolour.h"

struct VGuiGraphCursorColour
{
	static VGuiColour Colour;
};
