#include "vgui/vguidatagaincursor.h"

#include "vgui/vguiaxisratio.h"
#include "vgui/vguigraph.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguiparametricfiltersection.h"

#include <algorithm>
#include <cmath>

namespace {

// ln 10 / 20: decibels of amplitude to nepers.
constexpr double amplitudeNepersPerDecibel = 0.11512925464970228;

} // namespace

VGuiDataGainCursor::VGuiDataGainCursor(VGuiGraph* graph, VGuiGraphControl* control)
: VGuiConstrainedDataCursor(graph, false, false, VGuiConstrainNone),
  control(control)
{}

void VGuiDataGainCursor::filterParameters(const VGuiPoint& a, const VGuiPoint& b, double& centre,
                                          double& gain, double& q)
{
	VGuiGraphPoint from;
	VGuiGraphPoint to;
	owner->inverseMap(from, a);
	owner->inverseMap(to, b);
	centre = from.x;
	gain = VGuiAxisRatio(owner->yAxis(), from.y, to.y, amplitudeNepersPerDecibel);
	if (maximumQ)
		q = MaximumQ;
	else if (zeroQ)
		q = 0.0;
	else if (holdQ)
		q = lastQ;
	else if (from.x != to.x)
		// The centre over the band between the pointer and its mirror image
		// about the centre (on a logarithmic frequency scale).
		q = std::min(MaximumQ, from.x / std::fabs(to.x - from.x * from.x / to.x));
	else
		q = MaximumQ;
	lastQ = q;
}

bool VGuiDataGainCursor::qKey(const VstKeyCode& key, bool down)
{
	switch (key.character)
	{
	case 'M':
	case 'm':
		maximumQ = down;
		return true;
	case '0':
		zeroQ = down;
		return true;
	case '6':
		holdQ = down;
		return true;
	default:
		return false;
	}
}

bool VGuiDataGainCursor::onKeyDownEvent(VstKeyCode& key, VSTGUI::CView*)
{
	qKey(key, true);
	return true;
}

bool VGuiDataGainCursor::onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view)
{
	if (qKey(key, false))
		return true;
	return VGuiConstrainedDataCursor::onKeyUpEvent(key, view);
}

void VGuiDataGainCursor::beginAction(const VGuiPoint&)
{
	if (control)
		control->beginAdjust(data());
}

void VGuiDataGainCursor::moveAction(const VGuiPoint& p)
{
	if (!control || !dragging || !owner)
		return;
	const auto adjusted = section(start, p);
	text.clear();
	adjusted->description(text);
	control->trackAdjust(data(), adjusted.get());
}

void VGuiDataGainCursor::endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled)
{
	text.clear();
	if (!control || !owner)
		return;
	control->endAdjust(section(a, b).get(), cancelled);
}

VGuiReference<VGuiParametricFilterSection> VGuiDataGainCursor::section(const VGuiPoint& a,
                                                                       const VGuiPoint& b)
{
	double centre = 0.0;
	double gain = 1.0;
	double q = 0.0;
	filterParameters(a, b, centre, gain, q);
	return VGuiReference<VGuiParametricFilterSection>::adopt(
	    new VGuiParametricFilterSection(q, centre, gain));
}

void VGuiDataGainCursor::realize(VSTGUI::CDrawContext*)
{
	group.deleteAll();
	if (shown && dragging && owner)
	{
		// The band's half-width about the pointer, in whole pixels.
		VGuiGraphPoint centre;
		owner->inverseMap(centre, start);
		const double q = lastQ > 0.0 ? lastQ : 0.01;
		const double f0 = centre.x;
		const double edge = f0 * std::sqrt(1.0 + 1.0 / (4.0 * q * q)) + f0 / (2.0 * q);
		VGuiPoint f0Point;
		VGuiPoint edgePoint;
		owner->map(f0Point, VGuiGraphPoint(f0, centre.y, 0.0), true);
		owner->map(edgePoint, VGuiGraphPoint(edge, centre.y, 0.0), true);
		const double half = std::trunc(std::fabs(edgePoint.x - f0Point.x));
		const double tick = tickSize();
		const VGuiPoint band[8] = {{end.x - half, end.y - tick}, {end.x - half, end.y + tick},
		                           {end.x - half, end.y},        {end.x + half, end.y},
		                           {end.x + half, end.y - tick}, {end.x + half, end.y + tick},
		                           {end.x + half, end.y},        {end.x - half, end.y}};
		appendCursorLine(band, 8);
		realizeCross(start);
	}
	group.findExtent();
	takeGroupExtent();
}
