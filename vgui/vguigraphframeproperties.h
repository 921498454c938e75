// The colours of a graph's frame: the plot area's background, the window
// around it, and the shadow and highlight of the bevel between them, whose
// width in pixels is the last field. Reference counted.
#pragma once

#include "vgui/vguicolour.h"

#include "osi/base/referencecount.h"

class VGuiGraphFrameProperties : public OsiReferenceCount
{
public:
	VGuiColour frameBackground{0, 0, 0, 255};
	VGuiColour windowBackground{192, 192, 192, 255};
	VGuiColour frameShadow{128, 128, 128, 255};
	VGuiColour frameHighlight{221, 221, 221, 255};
	int bevelWidth = 3;
};
