#include "vgui/vguidatashelvingcursor.h"

#include "vgui/vguiaxisratio.h"
#include "vgui/vguigraph.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguishelvingfiltersection.h"

#include <algorithm>
#include <cmath>

namespace {

// ln 10 / 10: decibels of power to nepers.
constexpr double powerNepersPerDecibel = 0.23025850929940456;

} // namespace

VGuiDataShelvingCursor::VGuiDataShelvingCursor(VGuiGraph* graph, VGuiGraphControl* control,
                                               bool highShelf)
: VGuiConstrainedDataCursor(graph, false, false, VGuiConstrainNone),
  control(control),
  highShelf(highShelf)
{}

void VGuiDataShelvingCursor::filterParameters(const VGuiPoint& a, const VGuiPoint& b,
                                              double& corner, double& slope)
{
	VGuiGraphPoint from;
	VGuiGraphPoint to;
	owner->inverseMap(from, a);
	owner->inverseMap(to, b);
	corner = from.x;
	const double ratio = VGuiAxisRatio(owner->yAxis(), from.y, to.y, powerNepersPerDecibel);
	// Per decade up for a high shelf, per decade down for a low one.
	const double decade = std::log(highShelf ? 10.0 : 0.1);
	slope = std::clamp(std::log(ratio) / decade, -MaximumSlope, MaximumSlope);
}

void VGuiDataShelvingCursor::beginAction(const VGuiPoint&)
{
	if (control)
		control->beginAdjust(data());
}

void VGuiDataShelvingCursor::moveAction(const VGuiPoint& p)
{
	if (!control || !dragging || !owner)
		return;
	control->trackAdjust(data(), section(start, p).get());
}

void VGuiDataShelvingCursor::endAction(const VGuiPoint& a, const VGuiPoint& b, bool cancelled)
{
	if (!control || !owner)
		return;
	control->endAdjust(section(a, b).get(), cancelled);
}

VGuiReference<VGuiShelvingFilterSection> VGuiDataShelvingCursor::section(const VGuiPoint& a,
                                                                         const VGuiPoint& b)
{
	double corner = 0.0;
	double slope = 0.0;
	filterParameters(a, b, corner, slope);
	return VGuiReference<VGuiShelvingFilterSection>::adopt(
	    new VGuiShelvingFilterSection(corner, slope, highShelf));
}

void VGuiDataShelvingCursor::realize(VSTGUI::CDrawContext*)
{
	group.deleteAll();
	if (shown && dragging)
	{
		// As wide each way as the pointer is from the corner, at least a tick;
		// a high shelf rises to the right of the corner, a low one to the left.
		const double tick = tickSize();
		const double reach = std::max(tick, std::fabs(end.x - start.x)) * (highShelf ? 1.0 : -1.0);
		const double level = start.x - reach;
		const double shelf = start.x + reach;
		const VGuiPoint mark[7] = {
		    {level, start.y - tick}, {level, start.y + tick}, {level, start.y},     start,
		    {shelf, end.y},          {shelf, end.y - tick},   {shelf, end.y + tick}};
		appendCursorLine(mark, 7);
		realizeCross(start);
	}
	group.findExtent();
	takeGroupExtent();
}
