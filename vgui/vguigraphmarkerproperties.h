// How markers pinned to plots draw their read-outs: the font, the text, face
// and outline colours of the box, and the colour of the cross on the marked
// point, each line with its style. Reference counted.
#pragma once

#include "vgui/vguicolour.h"
#include "vgui/vguifont.h"

#include "osi/base/referencecount.h"

#include "vstgui/lib/clinestyle.h"

class VGuiGraphMarkerProperties : public OsiReferenceCount
{
public:
	VGuiGraphMarkerProperties() : font("Arial", 10.0, VSTGUI::kNormalFace) {}

	VGuiFont font;
	VGuiColour textColour{192, 192, 192, 255};
	VGuiColour faceColour{0, 0, 0, 255};
	VGuiColour outlineColour{192, 192, 192, 255};
	VSTGUI::CLineStyle outlineStyle{VSTGUI::kLineSolid};
	VGuiColour crossColour{192, 192, 192, 255};
	VSTGUI::CLineStyle crossStyle{VSTGUI::kLineSolid};
};
