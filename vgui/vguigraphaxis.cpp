#include "vgui/vguigraphaxis.h"

#include "vgui/vguigfxline.h"
#include "vgui/vguigfxtext.h"

#include "osi/text/osinumbertostring.h"

#include <algorithm>
#include <cmath>

namespace {

// The levels of sparser tick layouts tried before giving up on fitting,
// and of denser ones tried for an axis too short for two labels.
constexpr int kLayoutLevels = 16;
constexpr int kDenserLevels = 2;
// The closest spacing of labelled ticks worth trying, in pixels.
constexpr double kLeastHorizontalSpacing = 64.0;
constexpr double kLeastVerticalSpacing = 40.0;
// Closer minor ticks than this are left out.
constexpr double kLeastMinorSpacing = 3.0;
constexpr const char* kTimes = "\xc3\x97"; // the multiplication sign, in UTF-8

const VGuiColour kClear(0, 0, 0, 0);

// The number with its suffix letter; the blank before the letter stays only
// when units follow.
string_ext<char> numberText(double value, const char* units)
{
	OsiNumberToString number(true);
	string_ext<char> text = number.format(value, 3).text();
	if (!units || !*units)
		text.erase(text.find_last_not_of(' ') + 1);
	return text;
}

// Lines drawn one pixel wide look sharp only through pixel centres.
double pixelCentre(double v)
{
	return std::floor(v) + 0.5;
}

} // namespace

VGuiGraphAxis::VGuiGraphAxis(bool horizontal)
: props(VGuiReference<VGuiGraphAxisProperties>::adopt(new VGuiGraphAxisProperties)),
  horizontal(horizontal)
{}

VGuiGraphAxis::VGuiGraphAxis(const VGuiGraphAxis& other)
: VGuiGraphElement(other.identifier()),
  axisGrid(other.axisGrid),
  area(other.area),
  outset(other.outset),
  horizontal(other.horizontal)
{
	copyAttributes(other, true);
}

void VGuiGraphAxis::copyAttributes(const VGuiGraphAxis& other, bool withRange)
{
	props = other.props;
	units = other.units;
	title = other.title;
	titleGap = other.titleGap;
	titleOffset = other.titleOffset;
	decibelReference = other.decibelReference;
	spanDecibels = other.spanDecibels;
	maxSpan = other.maxSpan;
	labelsVisible = other.labelsVisible;
	minorGrid = other.minorGrid;
	power = other.power;
	titleVisible = other.titleVisible;
	visible = other.visible;
	if (withRange)
		range(other.maxValue, other.minValue);
}

void VGuiGraphAxis::properties(VGuiGraphAxisProperties* p)
{
	if (p)
		props.reset(p);
}

bool VGuiGraphAxis::map(VGuiPoint& p, double value) const
{
	if (!accepts(value))
		return false;
	p += lineMapping.map(transform(value));
	return minValue <= value && value <= maxValue;
}

double VGuiGraphAxis::inverseMap(const VGuiPoint& p) const
{
	return untransform(lineMapping.inverseMap(along(p - lineStart())).x);
}

VGuiPoint VGuiGraphAxis::along(const VGuiPoint& p) const
{
	// The other coordinate would leak in through the vertical line's
	// rounded quarter turn.
	return horizontal ? VGuiPoint(p.x, 0.0) : VGuiPoint(0.0, p.y);
}

double VGuiGraphAxis::constrain(VGuiPoint& p) const
{
	const double value = std::clamp(inverseMap(p), minValue, maxValue);
	const VGuiPoint at = lineStart() + lineMapping.map(transform(value));
	if (horizontal)
		p.x = at.x;
	else
		p.y = at.y;
	return value;
}

void VGuiGraphAxis::pan(const VGuiPoint& from, const VGuiPoint& to, double& maximum,
                        double& minimum) const
{
	const double shift =
	    lineMapping.inverseMap(along(from)).x - lineMapping.inverseMap(along(to)).x;
	maximum = untransform(transform(maximum) + shift);
	minimum = untransform(transform(minimum) + shift);
}

void VGuiGraphAxis::span(double ratio)
{
	if (!(ratio > 0.0))
		return;
	const double s = std::log10(ratio) * decibelFactor();
	if (s > -200.0 && s <= 0.0)
		spanDecibels = -s;
}

double VGuiGraphAxis::span() const
{
	return spanDecibels > 0.0 ? std::pow(10.0, -spanDecibels / decibelFactor()) : 0.001;
}

double VGuiGraphAxis::maximumSpan() const
{
	return maxSpan > 0.0 ? std::pow(10.0, -maxSpan / decibelFactor()) : 0.001;
}

double VGuiGraphAxis::calculateDecibelSpan(double a, double b) const
{
	if (type() == 3)
		return std::fabs(a - b);
	if (a > 0.0 && b > 0.0)
		return decibelFactor() * std::log10(std::max(a, b) / std::min(a, b));
	return 0.0;
}

string_ext<char> VGuiGraphAxis::unitsText(int exponent, const char* units)
{
	string_ext<char> text;
	const bool hasUnits = units && *units;
	if (exponent != 0)
	{
		const string_ext<char> number = numberText(std::pow(10.0, exponent), units);
		if (hasUnits)
			text.sprintf("%s +%s%s", kTimes, number.c_str(), units);
		else
			text.sprintf("%s +%s", kTimes, number.c_str());
	}
	else if (hasUnits)
		text.sprintf("%s", units);
	return text;
}

string_ext<char> VGuiGraphAxis::dBReferenceText(double reference, const char* units)
{
	string_ext<char> text;
	text.sprintf("dB [re %s%s]", numberText(reference, units).c_str(), units ? units : "");
	return text;
}

string_ext<char> VGuiGraphAxis::unitsString() const
{
	string_ext<char> text;
	units.concatenateWith(text);
	return text;
}

string_ext<char> VGuiGraphAxis::unitsLabel(int exponent) const
{
	return unitsText(exponent, unitsString().c_str());
}

void VGuiGraphAxis::range(double maximum, double minimum)
{
	maxValue = maximum;
	minValue = minimum;
	place(area, outset);
}

void VGuiGraphAxis::place(const VGuiRect& plotArea, double gap)
{
	area = plotArea;
	outset = gap;
	lineFrom = transform(minValue);
	lineTo = transform(maxValue);
	// A bound that cannot be shown (0 on a logarithmic axis) and an empty
	// range would scale without bound: a unit's span stands in.
	if (!std::isfinite(lineFrom))
		lineFrom = std::isfinite(lineTo) ? lineTo - 1.0 : -0.5;
	if (!std::isfinite(lineTo) || lineTo == lineFrom)
		lineTo = lineFrom + 1.0;
	const VGuiPoint end = horizontal ? VGuiPoint(std::max(area.width(), 1.0), 0.0)
	                                 : VGuiPoint(0.0, -std::max(area.height(), 1.0));
	lineMapping.realizeLineMapping(VGuiPoint(), end, lineFrom, lineTo);
}

VGuiPoint VGuiGraphAxis::lineStart() const
{
	return horizontal ? VGuiPoint() : VGuiPoint(0.0, area.height());
}

double VGuiGraphAxis::offsetOf(double value) const
{
	const VGuiPoint along = lineMapping.map(transform(value));
	return horizontal ? along.x : -along.y;
}

double VGuiGraphAxis::leastStep(double lo, double hi) const
{
	const double spacing = horizontal ? kLeastHorizontalSpacing : kLeastVerticalSpacing;
	return (hi - lo) * spacing / std::max(lineLength(), spacing);
}

double VGuiGraphAxis::lineLength() const
{
	return horizontal ? area.width() : area.height();
}

VGuiPoint VGuiGraphAxis::textSize(VSTGUI::CDrawContext* context, const char* text,
                                  const VGuiFont& font)
{
	VGuiGfxText measured(text, font, VGuiPoint(), kClear, kClear, VSTGUI::kLeftText);
	measured.findExtent(context);
	return VGuiPoint(measured.extent().width(), measured.extent().height());
}

double VGuiGraphAxis::labelExtent(VSTGUI::CDrawContext* context, const char* text) const
{
	const VGuiPoint size = textSize(context, text, props->labelFont);
	return horizontal ? size.x : size.y;
}

const VGuiGraphAxisAttributes& VGuiGraphAxis::attributes() const
{
	return horizontal ? props->horizontal : props->vertical;
}

bool VGuiGraphAxis::labelsFit(VSTGUI::CDrawContext* context, const VGuiGraphAxisTicks& ticks) const
{
	double previousEnd = -HUGE_VAL;
	for (const VGuiGraphTick& t : ticks.ticks)
	{
		if (!t.major)
			continue;
		const double centre = offsetOf(tickValue(t.value));
		const double half = labelExtent(context, t.label.c_str()) / 2.0;
		if (centre - half < previousEnd + attributes().labelSpacing)
			return false;
		previousEnd = centre + half;
	}
	return true;
}

VGuiGraphAxisTicks VGuiGraphAxis::fittedTicks(VSTGUI::CDrawContext* context) const
{
	VGuiGraphAxisTicks ticks;
	for (int level = 0; level < kLayoutLevels; ++level)
	{
		ticks = layoutTicks(lineLength(), level);
		if (ticks.majorCount() < 2 || labelsFit(context, ticks))
			break;
	}
	// A short axis may need labels closer than the spacing it prefers to
	// have two at all.
	for (int level = -1; ticks.majorCount() < 2 && level >= -kDenserLevels; --level)
	{
		VGuiGraphAxisTicks denser = layoutTicks(lineLength(), level);
		if (denser.majorCount() >= 2 && labelsFit(context, denser))
			ticks = std::move(denser);
	}
	dropCrowdedMinorTicks(ticks);
	return ticks;
}

void VGuiGraphAxis::dropCrowdedMinorTicks(VGuiGraphAxisTicks& ticks) const
{
	for (size_t i = 1; i < ticks.ticks.size(); ++i)
	{
		const double gap = std::fabs(offsetOf(tickValue(ticks.ticks[i].value)) -
		                             offsetOf(tickValue(ticks.ticks[i - 1].value)));
		if (gap < kLeastMinorSpacing)
		{
			ticks.majorOnly();
			return;
		}
	}
}

double VGuiGraphAxis::widestLabel(VSTGUI::CDrawContext* context,
                                  const VGuiGraphAxisTicks& ticks) const
{
	double widest = 0.0;
	for (const VGuiGraphTick& t : ticks.ticks)
	{
		if (t.major)
			widest = std::max(widest, textSize(context, t.label.c_str(), props->labelFont).x);
	}
	return widest;
}

bool VGuiGraphAxis::hasTitleRow(int exponent) const
{
	return (titleVisible && !title.empty()) || !unitsLabel(exponent).empty();
}

void VGuiGraphAxis::margins(VSTGUI::CDrawContext* context, int& across, int& along) const
{
	across = 0;
	along = 0;
	if (!visible)
		return;
	const VGuiGraphAxisTicks ticks = fittedTicks(context);
	const VGuiGraphAxisAttributes& a = attributes();
	const double labelHeight = textSize(context, "0", props->labelFont).y;
	const double titleHeight = textSize(context, "0", props->titleFont).y;
	double room = a.tickLength + a.labelGap;
	double beyond = 0.0;
	if (labelsVisible)
	{
		room += horizontal ? labelHeight : widestLabel(context, ticks);
		beyond = horizontal ? widestLabel(context, ticks) / 2.0 : labelHeight / 2.0;
	}
	if (hasTitleRow(ticks.exponent))
		room += titleGap + titleHeight;
	// A vertical axis puts its units above the plot area, over its labels.
	const string_ext<char> unitText = unitsLabel(ticks.exponent);
	if (!horizontal && !unitText.empty())
	{
		beyond = std::max(beyond, labelHeight + a.labelGap + labelHeight / 2.0);
		room = std::max(room, a.tickLength + a.labelGap +
		                          textSize(context, unitText.c_str(), props->labelFont).x);
	}
	across = static_cast<int>(std::ceil(room));
	along = static_cast<int>(std::ceil(beyond));
}

void VGuiGraphAxis::realize(VSTGUI::CDrawContext* context)
{
	group.deleteAll();
	const VGuiGraphAxisTicks ticks = fittedTicks(context);
	realizeGrid(ticks);
	if (visible)
	{
		realizeTicks(context, ticks);
		realizeTitles(context, ticks);
	}
	group.findExtent();
	takeGroupExtent();
}

VGuiPoint VGuiGraphAxis::tickPoint(double offset) const
{
	return horizontal ? VGuiPoint(pixelCentre(area.left + offset), area.bottom + outset)
	                  : VGuiPoint(area.left - outset, pixelCentre(area.bottom - offset));
}

void VGuiGraphAxis::realizeGrid(const VGuiGraphAxisTicks& ticks)
{
	if (!axisGrid)
		return;
	axisGrid->realizeBegin(horizontal ? 0.0 : area.width(), horizontal ? -area.height() : 0.0);
	for (const VGuiGraphTick& t : ticks.ticks)
	{
		const double offset = offsetOf(tickValue(t.value));
		// The frame already marks the ends.
		if ((!t.major && !minorGrid) || offset < 1.0 || offset > lineLength() - 1.0)
			continue;
		const VGuiPoint p = tickPoint(offset);
		axisGrid->realizeGridline(horizontal ? VGuiPoint(p.x, area.bottom)
		                                     : VGuiPoint(area.left, p.y),
		                          t.major ? 1.0 : 0.5);
	}
	axisGrid->realizeEnd();
}

void VGuiGraphAxis::realizeTicks(VSTGUI::CDrawContext* context, const VGuiGraphAxisTicks& ticks)
{
	const VGuiGraphAxisAttributes& a = attributes();
	// Outwards from the plot area: down for an x axis, left for a y axis.
	const VGuiPoint out = horizontal ? VGuiPoint(0.0, 1.0) : VGuiPoint(-1.0, 0.0);
	for (const VGuiGraphTick& t : ticks.ticks)
	{
		const VGuiPoint p = tickPoint(offsetOf(tickValue(t.value)));
		const double length = t.major ? a.tickLength : a.minorTickLength;
		group.append(
		    new VGuiGfxLine(p, p + out * length, props->tickColour, VSTGUI::kLineSolid, 1.0));
		if (t.major && labelsVisible)
			addText(context, t.label.c_str(), props->labelFont,
			        p + out * (a.tickLength + a.labelGap), 0.0,
			        horizontal ? VSTGUI::kCenterText : VSTGUI::kRightText, !horizontal);
	}
}

void VGuiGraphAxis::realizeTitles(VSTGUI::CDrawContext* context, const VGuiGraphAxisTicks& ticks)
{
	const VGuiGraphAxisAttributes& a = attributes();
	const double labelRoom = labelsVisible
	                             ? (horizontal ? textSize(context, "0", props->labelFont).y
	                                           : widestLabel(context, ticks))
	                             : 0.0;
	const double titleDistance = outset + a.tickLength + a.labelGap + labelRoom + titleGap;
	const string_ext<char> unitText = unitsLabel(ticks.exponent);
	if (horizontal)
	{
		const double y = area.bottom + titleDistance;
		if (titleVisible && !title.empty())
			addText(context, title.c_str(), props->titleFont,
			        VGuiPoint((area.left + area.right) / 2.0 + titleOffset, y), 0.0,
			        VSTGUI::kCenterText, false);
		if (!unitText.empty())
			addText(context, unitText.c_str(), props->labelFont, VGuiPoint(area.right, y), 0.0,
			        VSTGUI::kRightText, false);
		return;
	}
	if (titleVisible && !title.empty())
	{
		const double titleHeight = textSize(context, "0", props->titleFont).y;
		addText(context, title.c_str(), props->titleFont,
		        VGuiPoint(area.left - titleDistance - titleHeight,
		                  (area.top + area.bottom) / 2.0 - titleOffset),
		        90.0, VSTGUI::kCenterText, false);
	}
	if (!unitText.empty())
	{
		const double labelHeight = textSize(context, "0", props->labelFont).y;
		addText(context, unitText.c_str(), props->labelFont,
		        VGuiPoint(area.left - outset - a.tickLength - a.labelGap,
		                  area.top - outset - a.labelGap - labelHeight * 1.5),
		        0.0, VSTGUI::kRightText, false);
	}
}

void VGuiGraphAxis::addText(VSTGUI::CDrawContext* context, const char* text, const VGuiFont& font,
                            const VGuiPoint& at, double angle, VSTGUI::CHoriTxtAlign align,
                            bool centredVertically)
{
	auto* label = new VGuiGfxText(text, font, at, props->textColour, kClear, align, angle);
	label->findExtent(context);
	if (centredVertically)
		label->moveBy(VGuiPoint(0.0, -label->extent().height() / 2.0));
	group.append(label);
}

void VGuiGraphAxis::draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	group.draw(context, update);
}
