#include "vgui/vguiglobalgraphproperties.h"

#include "vgui/vguidpiscale.h"
#include "vgui/vguifont.h"
#include "vgui/vguigraphaxisproperties.h"
#include "vgui/vguigraphframeproperties.h"
#include "vgui/vguigraphgridproperties.h"
#include "vgui/vguigraphmarkerproperties.h"
#include "vgui/vguigraphplotproperties.h"

#include <algorithm>

using Properties = VGuiGlobalGraphProperties;

const char* const Properties::ColourCatagories[CategoryCount] = {
    "Window background",
    "Frame background",
    "Frame highlight",
    "Frame shadow",
    "Axis tick mark",
    "Axis text",
    "Axis grid",
    "Tips text",
    "Tips face",
    "Tips outline",
    "Marker text",
    "Marker face",
    "Marker outline",
    "Cursor",
    "Power spectrum",
    "Peak power spectrum",
    "Realtime power spectrum",
    "Ref power spectrum",
    "Ref peak power spectrum",
    "Ref Realtime power spectrum",
    "Filter adjust power spectrum",
    "Unfiltered power spectrum",
    "Unfiltered peak power spectrum",
    "Unfiltered realtime power spectrum",
    "Segment ref power spectrum",
    "Segment ref peak power spectrum",
};

Properties* Properties::global = nullptr;

namespace {

constexpr VGuiColour defaultColours[Properties::CategoryCount] = {
    {192, 192, 192, 255}, {0, 0, 0, 255},       {239, 239, 239, 255}, {128, 128, 128, 255},
    {0, 0, 0, 255},       {0, 0, 0, 255},       {64, 64, 64, 255},    {0, 0, 0, 255},
    {0, 0, 0, 255},       {0, 0, 0, 255},       {255, 255, 255, 255}, {0, 0, 0, 255},
    {192, 192, 192, 255}, {239, 239, 239, 255}, {36, 244, 36, 255},   {244, 244, 36, 255},
    {206, 99, 245, 255},  {80, 160, 0, 255},    {160, 160, 0, 255},   {141, 68, 168, 255},
    {160, 255, 255, 255}, {191, 191, 191, 255}, {255, 255, 255, 255}, {223, 223, 223, 255},
    {246, 130, 130, 255}, {251, 169, 169, 255},
};

// Made by the first global properties and kept for the whole process.
struct DefaultFonts
{
	DefaultFonts()
	: title("Arial", VGuiDpiScale().pointsToPixels(10.0), VSTGUI::kBoldFace),
	  units("Arial", VGuiDpiScale().pointsToPixels(7.5), VSTGUI::kNormalFace),
	  marker("Arial", VGuiDpiScale().pointsToPixels(7.5), VSTGUI::kNormalFace)
	{}
	VGuiFont title;
	VGuiFont units;
	VGuiFont marker;
};

const DefaultFonts& defaultFonts()
{
	static const DefaultFonts fonts;
	return fonts;
}

// 0.75 point in whole pixels; a line never narrower than one pixel, which
// would vanish at 72 dots per inch.
double plotLineWidth()
{
	return std::max(1.0,
	                static_cast<double>(static_cast<int>(VGuiDpiScale().pointsToPixels(0.75))));
}

template <typename T> VGuiReference<T> adopted(T* p)
{
	return VGuiReference<T>::adopt(p);
}

} // namespace

Properties::VGuiGlobalGraphProperties()
: gridProperties(adopted(new VGuiGraphGridProperties)),
  axisProperties(adopted(new VGuiGraphAxisProperties)),
  frameProperties(adopted(new VGuiGraphFrameProperties)),
  markerProperties(adopted(new VGuiGraphMarkerProperties))
{
	defaultFonts();
	for (int i = 0; i < CategoryCount; ++i)
		plotProperties[i] = adopted(
		    new VGuiGraphPlotProperties(defaultColours[i], defaultColours[i],
		                                VSTGUI::CLineStyle(VSTGUI::kLineSolid), plotLineWidth()));
	reset(true);
}

Properties::~VGuiGlobalGraphProperties()
{
	if (global == this)
		global = nullptr;
}

void Properties::reset(bool useDefaults)
{
	if (useDefaults)
	{
		std::copy(std::begin(defaultColours), std::end(defaultColours), std::begin(colours));
		axisProperties->titleFont = defaultFonts().title;
		axisProperties->labelFont = defaultFonts().units;
		markerProperties->font = defaultFonts().marker;
	}
	realizePalettes();
	markerProperties->outlineColour = colours[MarkerOutline];
	markerProperties->crossColour = colours[Cursor];
	markerProperties->faceColour = colours[MarkerFace];
}

void Properties::realizePalettes()
{
	gridProperties->colour = colours[AxisGrid];
	axisProperties->tickColour = colours[AxisTickMark];
	axisProperties->textColour = colours[AxisText];
	axisProperties->backgroundColour = colours[WindowBackground];
	frameProperties->frameBackground = colours[FrameBackground];
	frameProperties->windowBackground = colours[WindowBackground];
	frameProperties->frameShadow = colours[FrameShadow];
	frameProperties->frameHighlight = colours[FrameHighlight];
	markerProperties->textColour = colours[MarkerText];
	markerProperties->faceColour = colours[MarkerFace];
	for (int i = 0; i < CategoryCount; ++i)
	{
		plotProperties[i]->lineColour = colours[i];
		plotProperties[i]->fillColour = colours[i];
	}
}
