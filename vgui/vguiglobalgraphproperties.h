// The one colour scheme, font set and property set of the process, from
// which every new graph takes its grid, axis, frame and marker properties:
// 26 named colour categories, a plot-property object per category, and the
// default title, units and marker fonts. Reference counted; the process-wide
// instance, when there is one, is reached through instance().
#pragma once

#include "vgui/vguicolour.h"
#include "vgui/vguireference.h"

#include "osi/base/referencecount.h"

class VGuiGraphAxisProperties;
class VGuiGraphFrameProperties;
class VGuiGraphGridProperties;
class VGuiGraphMarkerProperties;
class VGuiGraphPlotProperties;

class VGuiGlobalGraphProperties : public OsiReferenceCount
{
public:
	// The colour categories, in the order of ColourCatagories.
	enum Category
	{
		WindowBackground,
		FrameBackground,
		FrameHighlight,
		FrameShadow,
		AxisTickMark,
		AxisText,
		AxisGrid,
		TipsText,
		TipsFace,
		TipsOutline,
		MarkerText,
		MarkerFace,
		MarkerOutline,
		Cursor,
		PowerSpectrum,
		PeakPowerSpectrum,
		RealtimePowerSpectrum,
		RefPowerSpectrum,
		RefPeakPowerSpectrum,
		RefRealtimePowerSpectrum,
		FilterAdjustPowerSpectrum,
		UnfilteredPowerSpectrum,
		UnfilteredPeakPowerSpectrum,
		UnfilteredRealtimePowerSpectrum,
		SegmentRefPowerSpectrum,
		SegmentRefPeakPowerSpectrum,
		CategoryCount
	};
	static const char* const ColourCatagories[CategoryCount];

	VGuiGlobalGraphProperties();
	~VGuiGlobalGraphProperties() override;

	// With useDefaults the default colours and fonts come back; the property
	// objects then take the colours.
	void reset(bool useDefaults);
	// Hands the colours to the property objects.
	void realizePalettes();

	// The process-wide instance; null when there is none. Not owned here.
	static VGuiGlobalGraphProperties* instance() { return global; }
	static void instance(VGuiGlobalGraphProperties* p) { global = p; }

	VGuiColour colours[CategoryCount];
	VGuiReference<VGuiGraphPlotProperties> plotProperties[CategoryCount];
	VGuiReference<VGuiGraphGridProperties> gridProperties;
	VGuiReference<VGuiGraphAxisProperties> axisProperties;
	VGuiReference<VGuiGraphFrameProperties> frameProperties;
	VGuiReference<VGuiGraphMarkerProperties> markerProperties;

private:
	static VGuiGlobalGraphProperties* global;
};
