#include "vgui/vguigraphcursor.h"

#include "vgui/vguidpiscale.h"
#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxrectangle.h"
#include "vgui/vguigraph.h"
#include "vgui/vguigraphcursorcolour.h"

#include <cmath>

VGuiColour VGuiGraphCursorColour::Colour{192, 192, 192, 255};

namespace {

// VSTGUI's virtual key of Escape.
constexpr int16_t escapeKey = 6;
constexpr VGuiColour noFill{0, 0, 0, 0};

} // namespace

VGuiGraphCursor::VGuiGraphCursor(VGuiGraph* graph)
{
	registerGraph(graph);
}

void VGuiGraphCursor::draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	group.draw(context, update);
}

void VGuiGraphCursor::realize(VSTGUI::CDrawContext*)
{
	group.deleteAll();
	takeGroupExtent();
}

bool VGuiGraphCursor::leftAlone(const VSTGUI::CButtonState& buttons)
{
	constexpr int32_t allButtons = VSTGUI::kLButton | VSTGUI::kMButton | VSTGUI::kRButton |
	                               VSTGUI::kButton4 | VSTGUI::kButton5;
	return (buttons.getButtonState() & allButtons) == VSTGUI::kLButton;
}

void VGuiGraphCursor::startDrag(const VGuiPoint& p)
{
	dragging = true;
	cancelled = false;
	start = p;
	end = p;
	visible(true);
	beginAction(start);
}

bool VGuiGraphCursor::onKeyUpEvent(VstKeyCode& key, VSTGUI::CView*)
{
	if (key.virt == escapeKey && owner)
		cancelled = true;
	return true;
}

bool VGuiGraphCursor::onMouseDownEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
                                       bool& handled, VSTGUI::CView*)
{
	if (!owner)
		return true;
	if (buttons.isDoubleClick())
	{
		doubleClick = true;
		return true;
	}
	if (!leftAlone(buttons))
		return true;
	startDrag(VGuiPoint(where));
	if (handled)
		notifyDataCursorMsg(start, -1);
	return true;
}

bool VGuiGraphCursor::onMouseMovedEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
                                        bool& handled, VSTGUI::CView*)
{
	if (!owner)
		return true;
	const VGuiPoint p(where);
	if (leftAlone(buttons) && dragging)
	{
		end = p;
		if (shown)
			refresh();
		if (handled)
			notifyDataCursorMsg(p, -1);
	}
	moveAction(p);
	return true;
}

bool VGuiGraphCursor::onMouseUpEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
                                     bool& handled, VSTGUI::CView*)
{
	// The release after a double click ends nothing, whether a drag runs or
	// not.
	if (buttons.isDoubleClick() || doubleClick)
	{
		doubleClick = false;
		return true;
	}
	if (!dragging || !owner)
		return true;
	end = VGuiPoint(where);
	if (handled)
		notifyDataCursorMsg(end, -1);
	endAction(start, end, cancelled);
	visible(false);
	dragging = false;
	return true;
}

void VGuiGraphCursor::endAction(const VGuiPoint&, const VGuiPoint&, bool) {}

void VGuiGraphCursor::visible(bool on)
{
	shown = on;
	if (!owner)
		return;
	owner->beginUpdate();
	owner->invalidateElement(this, bounds);
	owner->realize(this);
	owner->endUpdate();
}

void VGuiGraphCursor::notifyDataCursorMsg(const VGuiPoint& p, int dataId) const
{
	dataMessages.notifyDataCursorMsg(owner, precision(), p, dataId);
}

void VGuiGraphCursor::notifyDataCursorMsg(const VGuiGraphPoint& p, int dataId) const
{
	dataMessages.notifyDataCursorMsg(owner, precision(), p, dataId);
}

void VGuiGraphCursor::realizeRubberBand()
{
	group.deleteAll();
	if (shown && dragging)
	{
		const VGuiRect band(std::min(start.x, end.x), std::min(start.y, end.y),
		                    std::max(start.x, end.x), std::max(start.y, end.y));
		group.append(new VGuiGfxRectangle(band, VGuiGraphCursorColour::Colour, noFill,
		                                  VSTGUI::CLineStyle(VSTGUI::kLineSolid), 1.0));
	}
	group.findExtent();
	takeGroupExtent();
}

void VGuiGraphCursor::realizeDragLine()
{
	group.deleteAll();
	if (shown && dragging)
	{
		const VGuiPoint points[2] = {start, end};
		appendCursorLine(points, 2);
		realizeCross(start);
	}
	group.findExtent();
	takeGroupExtent();
}

double VGuiGraphCursor::tickSize()
{
	return std::trunc(VGuiDpiScale().pointsToPixels(6.0));
}

void VGuiGraphCursor::realizeCross(const VGuiPoint& p)
{
	const double s = tickSize();
	const VGuiPoint cross[5] = {{p.x - s, p.y}, {p.x + s, p.y}, p, {p.x, p.y - s}, {p.x, p.y + s}};
	appendCursorLine(cross, 5);
}

void VGuiGraphCursor::appendCursorLine(const VGuiPoint* points, int count)
{
	group.append(new VGuiGfxPolyline(points, count, VGuiGraphCursorColour::Colour, noFill,
	                                 VSTGUI::CLineStyle(VSTGUI::kLineSolid), 1.0));
}
