#include "vgui/vguidatacursorbase.h"

#include "vgui/vguigraph.h"
#include "vgui/vguigraphmarker.h"
#include "vgui/vguigraphplot.h"

#include <algorithm>
#include <cmath>

namespace {

// VSTGUI's virtual key of Tab.
constexpr int16_t tabKey = 2;

bool noButton(const VSTGUI::CButtonState& buttons)
{
	constexpr int32_t allButtons = VSTGUI::kLButton | VSTGUI::kMButton | VSTGUI::kRButton |
	                               VSTGUI::kButton4 | VSTGUI::kButton5;
	return (buttons.getButtonState() & allButtons) == 0;
}

} // namespace

VGuiDataCursorBase::VGuiDataCursorBase(VGuiGraph* graph, bool interpolate)
: VGuiGraphCursor(graph),
  interpolate(interpolate)
{
	if (!graph)
		return;
	VGuiGraphPlot* p = nullptr;
	VGuiGraphData* d = nullptr;
	graph->currentFocus(p, d);
	follow(p, d);
}

void VGuiDataCursorBase::follow(VGuiGraphPlot* p, VGuiGraphData* d)
{
	focused = p;
	followed.reset(d);
	searchIndex = 0;
}

bool VGuiDataCursorBase::onMouseDownEvent(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons, bool&,
                                          VSTGUI::CView*)
{
	if (!owner)
		return true;
	if (buttons.isDoubleClick())
	{
		doubleClick = true;
		return true;
	}
	if (!followed || !focused || !focused->isActive())
	{
		VGuiGraphPlot* p = nullptr;
		VGuiGraphData* d = nullptr;
		owner->currentFocus(p, d);
		follow(p, d);
	}
	if (!leftAlone(buttons))
		return true;
	findDataPoint(VGuiPoint(where), true);
	startDrag(VGuiPoint(where));
	notifyDataCursorMsg(point, dataId());
	return true;
}

bool VGuiDataCursorBase::onMouseMovedEvent(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons, bool& handled,
                                           VSTGUI::CView*)
{
	if (!owner)
		return true;
	const VGuiPoint p(where);
	if (leftAlone(buttons) && dragging)
	{
		findDataPoint(p, false);
		end = p;
		if (shown)
			refresh();
	}
	else if (noButton(buttons) && handled)
		notifyDataCursorMsg(p, dataId());
	moveAction(p);
	return true;
}

bool VGuiDataCursorBase::onMouseUpEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
                                        bool&, VSTGUI::CView*)
{
	if (buttons.isDoubleClick() || doubleClick)
	{
		doubleClick = false;
		return true;
	}
	if (!dragging || !owner)
		return true;
	end = VGuiPoint(where);
	findDataPoint(end, false);
	dragging = false;
	endAction(start, end, cancelled);
	visible(false);
	return true;
}

bool VGuiDataCursorBase::onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view)
{
	VGuiGraphCursor::onKeyUpEvent(key, view);
	if (key.virt == tabKey && owner)
	{
		changeFocus((key.modifier & MODIFIER_SHIFT) != 0);
		findDataPoint(end, false);
		if (shown)
			refresh();
	}
	return true;
}

void VGuiDataCursorBase::changeFocus(bool next)
{
	VGuiGraphPlot* p = nullptr;
	VGuiGraphData* d = nullptr;
	if (next)
		owner->nextFocus(p, d);
	else
		owner->prevFocus(p, d);
	follow(p, d);
}

void VGuiDataCursorBase::notifyPlotReplaced(VGuiGraphPlot* old, VGuiGraphPlot* replacement)
{
	if (old != focused || !replacement)
		return;
	focused = replacement;
	followed.reset(replacement->dataCount() > 0 ? replacement->dataItem(0) : nullptr);
	searchIndex = followed ? std::min(searchIndex, std::max(0, followed->count() - 1)) : 0;
}

void VGuiDataCursorBase::notifyAxesChanged()
{
	if (!owner)
		return;
	snapped = VGuiPoint();
	owner->map(snapped, point, true);
	snappedStart = VGuiPoint();
	owner->map(snappedStart, startPoint, true);
	previousSnapped = snapped;
	if (shown)
		owner->realize(this);
}

bool VGuiDataCursorBase::focusColour(VGuiColour& colour) const
{
	if (!focused || !focused->properties())
		return false;
	colour = focused->properties()->lineColour;
	return true;
}

int VGuiDataCursorBase::search(double x) const
{
	const VGuiGraphData& d = *followed;
	const int n = d.count();
	int i = std::clamp(searchIndex, 0, n - 1);
	if (n < 2)
		return i;
	const bool ascending = i + 1 < n ? d[i + 1].x >= d[i].x : d[i].x >= d[i - 1].x;
	// Towards x: with the data's order when x lies that way.
	const bool upwards = ascending == (d[i].x < x);
	const int step = upwards ? 1 : -1;
	auto reached = [&](double v) { return upwards == ascending ? v >= x : v <= x; };
	for (int steps = 0; steps < n; ++steps)
	{
		if (reached(d[i].x))
			return i;
		i += step;
		if (i < 0 || i >= n)
			// Beyond the data: the end that lies that way.
			return std::clamp(i, 0, n - 1);
	}
	return i;
}

double VGuiDataCursorBase::fractionAt(int i, double x) const
{
	VGuiPoint left;
	VGuiPoint right;
	owner->map(left, (*followed)[i], true);
	owner->map(right, (*followed)[i + 1], true);
	if (left.x == right.x)
		return 0.0;
	return std::clamp((x - left.x) / (right.x - left.x), 0.0, 1.0);
}

void VGuiDataCursorBase::interpolateDataPoint(int i, double fraction, VGuiPoint& screen,
                                              VGuiGraphPoint& g) const
{
	VGuiPoint left;
	VGuiPoint right;
	owner->map(left, (*followed)[i], true);
	owner->map(right, (*followed)[i + 1], true);
	if (left.x == right.x)
		fraction = 0.0;
	screen = VGuiPoint(left.x + fraction * (right.x - left.x),
	                   std::trunc(left.y + fraction * (right.y - left.y)));
	owner->inverseMap(g, screen);
}

void VGuiDataCursorBase::findDataPoint(const VGuiPoint& p, bool begin)
{
	if (!owner || !followed || followed->count() == 0)
		return;
	const VGuiGraphData& d = *followed;
	const int n = d.count();
	VGuiGraphPoint mouse;
	owner->inverseMap(mouse, p);
	int i = search(mouse.x);
	if (!interpolate || n < 2)
	{
		const auto distance = [&](int k) { return std::fabs(d[k].x - mouse.x); };
		if (i > 0 && distance(i - 1) < distance(i))
			--i;
		else if (i + 1 < n && distance(i + 1) < distance(i))
			++i;
		point = d[i];
		snapped = VGuiPoint();
		owner->map(snapped, point, true);
		if (begin)
		{
			firstIndex = i;
			firstFraction = 0.0;
		}
		startPoint = d[firstIndex];
		snappedStart = VGuiPoint();
		owner->map(snappedStart, startPoint, true);
	}
	else
	{
		if (i > 0 && (d[i - 1].x - mouse.x) * (d[i].x - mouse.x) <= 0.0)
			--i;
		i = std::min(i, n - 2);
		const double fraction = fractionAt(i, p.x);
		interpolateDataPoint(i, fraction, snapped, point);
		if (begin)
		{
			firstIndex = i;
			firstFraction = fraction;
		}
		interpolateDataPoint(std::min(firstIndex, n - 2), firstFraction, snappedStart, startPoint);
	}
	searchIndex = i;
	const bool changed = snapped.x != previousSnapped.x || snapped.y != previousSnapped.y;
	previousSnapped = snapped;
	VGuiGraphPoint third = point;
	notifyConstrainedDataCursorMsg(point, startPoint, third, dataId(), i, changed);
}

void VGuiDataCursorBase::placeMarker(VGuiGraphMarker* marker)
{
	owner->beginUpdate();
	owner->addMarker(marker);
	owner->endUpdate();
	marker->release();
}
