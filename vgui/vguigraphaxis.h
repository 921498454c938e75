// An axis of a graph: it turns values of one graph coordinate into positions
// along a screen line at the edge of the plot area and back, holds the range
// that the graph shows, and labels itself with ticks, a title and its units.
// The kinds (linear, logarithmic, decibel) differ in how a value becomes a
// coordinate along the line (transform), in their tick layout and in their
// value format. An axis draws its tick marks and labels itself; the lines
// across the plot area belong to its grid.
#pragma once

#include "vgui/vguicoordinatetransform.h"
#include "vgui/vguigraphaxisproperties.h"
#include "vgui/vguigraphaxisticks.h"
#include "vgui/vguigraphelement.h"
#include "vgui/vguigraphgrid.h"
#include "vgui/vguireference.h"

#include "osi/base/string_ext.h"
#include "osi/text/osicompositeunitlabel.h"
#include "osi/text/osivalueformat.h"

#include <memory>

class VGuiGraphAxis : public VGuiGraphElement
{
public:
	// horizontal: an x axis along the bottom of the plot area; otherwise a y
	// axis along its left side.
	explicit VGuiGraphAxis(bool horizontal);

	virtual int type() const = 0;
	virtual const char* name() const = 0;
	virtual bool isLogScale() const = 0;
	// A new axis of the same kind equal to this one.
	virtual VGuiGraphAxis* copy() const = 0;
	virtual std::unique_ptr<OsiValueFormat> createValueFormat() const = 0;

	// Moves p by the value's position along the axis line and returns whether
	// the value lies in the range; false, leaving p, for a value that the
	// axis cannot show at all.
	bool map(VGuiPoint& p, double value) const;
	// The value at a point.
	double inverseMap(const VGuiPoint& p) const;
	// Clamps the value at p to the range, moves p along the axis to the
	// clamped value's position and returns it.
	double constrain(VGuiPoint& p) const;
	// Shifts maximum and minimum by the pointer's move from one point to
	// another, as the axis scales (a logarithmic axis in ratios).
	void pan(const VGuiPoint& from, const VGuiPoint& to, double& maximum, double& minimum) const;

	// The decibel span: span(ratio) takes a ratio of the range's ends below 1
	// (down to -200 dB) as the span; span() gives it back as a ratio, 0.001
	// without one. maximumSpan() alike for the maximum decibel span.
	void span(double ratio);
	double span() const;
	double maximumSpan() const;
	void maximumDecibelSpan(double decibels) { maxSpan = decibels; }
	double decibelSpan() const { return spanDecibels; }
	double maximumDecibelSpan() const { return maxSpan; }
	// Decibels between a and b: their difference on an axis of levels,
	// otherwise the ratio of the larger to the smaller in dB (0 unless both
	// are positive).
	double calculateDecibelSpan(double a, double b) const;
	double decibelFactor() const { return power ? 10.0 : 20.0; }

	// "× +1 kHz": the units after 10^exponent, for labels divided by it.
	static string_ext<char> unitsText(int exponent, const char* units);
	// "dB [re 1 V]".
	static string_ext<char> dBReferenceText(double reference, const char* units);

	// Null is ignored.
	void properties(VGuiGraphAxisProperties* p);
	VGuiGraphAxisProperties* properties() const { return props.get(); }
	void grid(VGuiGraphGrid* g) { axisGrid.reset(g); }
	VGuiGraphGrid* grid() const { return axisGrid.get(); }

	// The room the labels and titles need beside the plot area (across) and
	// beyond the ends of the axis line (along), in whole pixels.
	void margins(VSTGUI::CDrawContext* context, int& across, int& along) const;
	// Lays out ticks, labels, titles and grid lines for the plot area.
	void realize(VSTGUI::CDrawContext* context) override;
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	// Takes title, units, properties, decibel settings and flags of another
	// axis, and with withRange its range too.
	void copyAttributes(const VGuiGraphAxis& other, bool withRange);

	// The range shown, and the plot area whose edge the axis runs along.
	void range(double maximum, double minimum);
	double rangeMaximum() const { return maxValue; }
	double rangeMinimum() const { return minValue; }
	// outset: the pixels between the plot area's edge and the tick marks.
	void place(const VGuiRect& plotArea, double outset);
	// The range's ends as transformed for the line (finite, and apart).
	double transformedMinimum() const { return lineFrom; }
	double transformedMaximum() const { return lineTo; }
	const VGuiRect& plotArea() const { return area; }
	bool isHorizontal() const { return horizontal; }

	// Whether the axis can show a value at all.
	virtual bool accepts(double) const { return true; }
	// The coordinate in which the axis runs linearly along its line, and back.
	virtual double transform(double value) const { return value; }
	virtual double untransform(double t) const { return t; }

	OsiCompositeUnitLabel units;
	string_ext<char> title{"Title"};
	// Pixels between the labels and the title, and the title's shift along
	// the axis from the centre.
	double titleGap = 10.0;
	double titleOffset = 0.0;
	// The value that reads 0 dB.
	double decibelReference = 1.0;
	bool labelsVisible = true;
	// Grid lines at the unlabelled ticks too (fainter).
	bool minorGrid = false;
	// Decibels of power (10 log10) rather than of amplitude (20 log10).
	bool power = false;
	bool titleVisible = true;
	// Tick marks, labels and titles drawn at all.
	bool visible = true;

protected:
	VGuiGraphAxis(const VGuiGraphAxis& other);

	// The kind's ticks for the range, the level-th sparsest layout: level 0
	// is the densest worth trying.
	virtual VGuiGraphAxisTicks layoutTicks(double lengthPixels, int level) const = 0;
	// A tick's position in axis values.
	virtual double tickValue(double labelValue) const { return labelValue; }
	// The smallest step between labelled ticks worth trying for a range of
	// label units on this axis: labels about a finger's width apart.
	double leastStep(double lo, double hi) const;
	// The label at the end of the axis: the units, after the labels'
	// exponent.
	virtual string_ext<char> unitsLabel(int exponent) const;
	string_ext<char> unitsString() const;

	VGuiCoOrdinateTransform lineMapping;
	double lineFrom = -1.0;
	double lineTo = 1.0;
	double maxValue = 1.0;
	double minValue = -1.0;
	double spanDecibels = 0.0;
	double maxSpan = 0.0;

private:
	// The line's start, the range's minimum, from the plot area's top left.
	VGuiPoint lineStart() const;
	// The part of a vector along the axis.
	VGuiPoint along(const VGuiPoint& p) const;
	double lineLength() const;
	// A value's distance along the line from its start, in pixels.
	double offsetOf(double value) const;
	// Where the tick at an offset meets the frame, on a pixel's centre.
	VGuiPoint tickPoint(double offset) const;
	const VGuiGraphAxisAttributes& attributes() const;

	// The densest tick layout whose labels fit along the line without
	// overlapping, without minor ticks that would crowd.
	VGuiGraphAxisTicks fittedTicks(VSTGUI::CDrawContext* context) const;
	bool labelsFit(VSTGUI::CDrawContext* context, const VGuiGraphAxisTicks& ticks) const;
	void dropCrowdedMinorTicks(VGuiGraphAxisTicks& ticks) const;
	static VGuiPoint textSize(VSTGUI::CDrawContext* context, const char* text,
	                          const VGuiFont& font);
	// A label's size along the axis.
	double labelExtent(VSTGUI::CDrawContext* context, const char* text) const;
	double widestLabel(VSTGUI::CDrawContext* context, const VGuiGraphAxisTicks& ticks) const;
	bool hasTitleRow(int exponent) const;

	void realizeGrid(const VGuiGraphAxisTicks& ticks);
	void realizeTicks(VSTGUI::CDrawContext* context, const VGuiGraphAxisTicks& ticks);
	void realizeTitles(VSTGUI::CDrawContext* context, const VGuiGraphAxisTicks& ticks);
	// A text anchored at its top by the alignment (and at its middle when
	// centredVertically), turned by angle degrees about the anchor.
	void addText(VSTGUI::CDrawContext* context, const char* text, const VGuiFont& font,
	             const VGuiPoint& at, double angle, VSTGUI::CHoriTxtAlign align,
	             bool centredVertically);

	VGuiReference<VGuiGraphAxisProperties> props;
	VGuiReference<VGuiGraphGrid> axisGrid;
	VGuiRect area;
	// Pixels between the plot area's edge and the tick marks.
	double outset = 0.0;
	bool horizontal;
};
