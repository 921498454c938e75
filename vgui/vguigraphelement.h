// Base of everything that lives on a graph and takes part in its events and
// redraws: axes, plots, markers, cursors and free elements. An element lays
// itself out (realize) into a group of graphic objects, which it then draws.
// Reference counted: the graph's lists hold a reference on each element.
//
// Event handlers return true to let the event pass on to the next receiver;
// the shared flag of mouse events, true at the start, tells later receivers
// whether the pointer has already been dealt with.
#pragma once

#include "vgui/vguigfxgroup.h"
#include "vgui/vguigfxstate.h"
#include "vgui/vguigraphchanges.h"
#include "vgui/vguirect.h"

#include "osi/base/referencecount.h"

#include "vstgui/lib/cbuttonstate.h"
#include "vstgui/lib/cpoint.h"
#include "vstgui/lib/vstguifwd.h"
#include "vstgui/lib/vstkeycode.h"

class VGuiGraph;

class VGuiGraphElement : public OsiReferenceCount
{
public:
	// identifier: what the graph's ...WithId look-ups find.
	explicit VGuiGraphElement(int identifier = 0) : id(identifier) {}
	~VGuiGraphElement() override = default;

	virtual void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const = 0;
	// Lays the element out for the graph's current ranges and plot area.
	virtual void realize(VSTGUI::CDrawContext* context) = 0;
	// Hover and press states of the group's objects; true when the look
	// changed, with the rectangle to repaint joined into repaint.
	virtual bool state(VGuiGfxState state, const VGuiPoint& p, VGuiRect& repaint);
	virtual bool onKeyDownEvent(VstKeyCode& key, VSTGUI::CView* view);
	virtual bool onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view);
	virtual bool onMouseDownEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                              bool& handled, VSTGUI::CView* view);
	virtual bool onMouseUpEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                            bool& handled, VSTGUI::CView* view);
	virtual bool onMouseMovedEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                               bool& handled, VSTGUI::CView* view);
	virtual bool onMouseEnteredEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                                 bool& handled, VSTGUI::CView* view);
	virtual bool onMouseExitedEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                                bool& handled, VSTGUI::CView* view);
	virtual bool onMouseCancelledEvent(bool& handled, VSTGUI::CView* view);
	virtual bool onMouseWheelEvent(VSTGUI::CPoint& where, const VSTGUI::CMouseWheelAxis& axis,
	                               const float& distance, const VSTGUI::CButtonState& buttons,
	                               bool& handled, VSTGUI::CView* view);
	// Whether changes of the graph require this element to be laid out and
	// repainted. The base needs nothing.
	virtual bool shouldInvalidate(VGuiGraphChanges changes) const;
	// Moving to another graph drops the place in the old one's queue.
	virtual void registerGraph(VGuiGraph* graph);

	// Realizes and invalidates the element on its graph when the changes
	// concern it.
	void checkInvalidate(VGuiGraphChanges changes);
	// Significant digits of read-outs: the graph's axis properties' precision,
	// or 3 without a graph.
	int precision() const;
	// Realizes and invalidates the element inside an update, when its graph
	// is shown.
	void refresh();

	VGuiGraph* graph() const { return owner; }
	const VGuiRect& extent() const { return bounds; }
	int identifier() const { return id; }
	bool isQueued() const { return queued; }
	void setQueued(bool q) { queued = q; }
	bool isActive() const { return active; }
	void setActive(bool a) { active = a; }

protected:
	// The group's bounds become the extent.
	void takeGroupExtent();

	VGuiGraph* owner = nullptr;
	VGuiRect bounds;
	VGuiGfxGroup group;

private:
	int id;
	bool queued = false;
	bool active = true;
};
