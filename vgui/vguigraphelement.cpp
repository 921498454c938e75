#include "vgui/vguigraphelement.h"

#include "vgui/vguigraph.h"
#include "vgui/vguigraphaxisproperties.h"

bool VGuiGraphElement::state(VGuiGfxState s, const VGuiPoint& p, VGuiRect& repaint)
{
	return group.state(s, p, repaint);
}

bool VGuiGraphElement::onKeyDownEvent(VstKeyCode&, VSTGUI::CView*)
{
	return true;
}

bool VGuiGraphElement::onKeyUpEvent(VstKeyCode&, VSTGUI::CView*)
{
	return true;
}

bool VGuiGraphElement::onMouseDownEvent(VSTGUI::CPoint&, const VSTGUI::CButtonState&, bool&,
                                        VSTGUI::CView*)
{
	return true;
}

bool VGuiGraphElement::onMouseUpEvent(VSTGUI::CPoint&, const VSTGUI::CButtonState&, bool&,
                                      VSTGUI::CView*)
{
	return true;
}

bool VGuiGraphElement::onMouseMovedEvent(VSTGUI::CPoint&, const VSTGUI::CButtonState&, bool&,
                                         VSTGUI::CView*)
{
	return true;
}

bool VGuiGraphElement::onMouseEnteredEvent(VSTGUI::CPoint&, const VSTGUI::CButtonState&, bool&,
                                           VSTGUI::CView*)
{
	return true;
}

bool VGuiGraphElement::onMouseExitedEvent(VSTGUI::CPoint&, const VSTGUI::CButtonState&, bool&,
                                          VSTGUI::CView*)
{
	return true;
}

bool VGuiGraphElement::onMouseCancelledEvent(bool&, VSTGUI::CView*)
{
	return true;
}

bool VGuiGraphElement::onMouseWheelEvent(VSTGUI::CPoint&, const VSTGUI::CMouseWheelAxis&,
                                         const float&, const VSTGUI::CButtonState&, bool&,
                                         VSTGUI::CView*)
{
	return true;
}

bool VGuiGraphElement::shouldInvalidate(VGuiGraphChanges) const
{
	return false;
}

void VGuiGraphElement::registerGraph(VGuiGraph* graph)
{
	if (graph != owner)
		queued = false;
	owner = graph;
}

void VGuiGraphElement::checkInvalidate(VGuiGraphChanges changes)
{
	if (!shouldInvalidate(changes) || !owner)
		return;
	owner->realize(this);
	owner->invalidateElement(this, bounds);
}

int VGuiGraphElement::precision() const
{
	if (!owner || !owner->axisProperties())
		return 3;
	return owner->axisProperties()->precision;
}

void VGuiGraphElement::refresh()
{
	if (!owner || !owner->attached())
		return;
	owner->beginUpdate();
	owner->realize(this);
	owner->invalidateElement(this, bounds);
	owner->endUpdate();
}

void VGuiGraphElement::takeGroupExtent()
{
	bounds = group.extent();
}
