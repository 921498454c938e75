// How axes draw themselves: fonts for titles and tick labels, colours for
// tick marks, text and the background behind the text, the precision of
// read-outs, and the tick layout of horizontal and of vertical axes.
// Reference counted: a graph's axes share one set.
#pragma once

#include "vgui/vguicolour.h"
#include "vgui/vguifont.h"

#include "osi/base/referencecount.h"

// Tick layout of one orientation, in pixels.
struct VGuiGraphAxisAttributes
{
	float tickLength;
	float minorTickLength;
	// Between a tick's end and its label.
	float labelGap;
	// The least free space between neighbouring labels.
	float labelSpacing;
};

class VGuiGraphAxisProperties : public OsiReferenceCount
{
public:
	VGuiGraphAxisProperties();

	VGuiFont titleFont;
	VGuiFont labelFont;
	VGuiColour tickColour{0, 0, 0, 255};
	VGuiColour textColour{0, 0, 0, 255};
	VGuiColour backgroundColour{192, 192, 192, 255};
	VGuiGraphAxisAttributes horizontal;
	VGuiGraphAxisAttributes vertical;
	// Significant digits of the values that read-outs print.
	int precision = 3;
};
