#include "vgui/vguigraphcontrol.h"

#include "vgui/vguigenericfiltersection.h"
#include "vgui/vguiglobalgraphproperties.h"
#include "vgui/vguigraphaxis.h"
#include "vgui/vguigraphcontroltypeinfo.h"
#include "vgui/vguigraphdata.h"
#include "vgui/vguigraphplotproperties.h"

#include "vstgui/lib/events.h"

#include <algorithm>

using namespace VSTGUI;

VGuiGraphControl::VGuiGraphControl(const CRect& size, IControlListener* listener, int tag,
                                   CBitmap* background)
: CControl(size, listener, tag, background)
{
	// Keys reach the graph through the frame's focus.
	setWantsFocus(true);
}

VGuiGraphControl::VGuiGraphControl(const VGuiGraphControl& other)
: CControl(other),
  fitsParent(other.fitsParent)
{}

VGuiGraphControl::~VGuiGraphControl()
{
	if (shown)
		shown->attached(false);
}

bool VGuiGraphControl::create(const VGuiGraphControlTypeInfo& info, double xMaximum,
                              double xMinimum, double yMaximum, double yMinimum, double yReference,
                              double yMaximumSpan)
{
	if (shown)
		return false;
	shown = VGuiReference<VGui2dGraph>::adopt(new VGui2dGraph(nullptr));
	sizeToFit();
	shown->attached(isAttached());
	shown->extent(VGuiRect(getViewSize()), this);
	shown->open();
	shown->beginUpdate();
	if (auto* global = VGuiGlobalGraphProperties::instance())
	{
		shown->gridProperties(global->gridProperties.get());
		shown->axisProperties(global->axisProperties.get());
		shown->frameProperties(global->frameProperties.get());
		shown->markerProperties(global->markerProperties.get());
	}
	info.initialiseGraph(shown.get(), xMaximum, xMinimum, yMaximum, yMinimum, yReference,
	                     yMaximumSpan);
	shown->endUpdate();
	return true;
}

void VGuiGraphControl::fitParent(bool on)
{
	const bool turnedOn = on && !fitsParent;
	fitsParent = on;
	if (turnedOn)
		sizeToFit();
}

bool VGuiGraphControl::sizeToFit()
{
	CRect r = getViewSize();
	if (fitsParent && getParentView())
		r = CRect(CPoint(0, 0), getParentView()->getViewSize().getSize());
	setViewSize(r, true);
	return true;
}

void VGuiGraphControl::setViewSize(const CRect& rect, bool invalid)
{
	CControl::setViewSize(rect, invalid);
	if (shown && isVisible())
		shown->extent(VGuiRect(getViewSize()), this);
}

void VGuiGraphControl::parentSizeChanged()
{
	if (fitsParent)
		sizeToFit();
}

void VGuiGraphControl::refresh()
{
	if (!shown)
		return;
	shown->attached(isAttached());
	if (isAttached())
	{
		shown->beginUpdate();
		shown->extent(VGuiRect(getViewSize()), this);
		shown->signalChanges(VGuiGraphAllChanges);
		shown->invalidateExtent(shown->extent());
		shown->endUpdate();
	}
	invalid();
}

void VGuiGraphControl::draw(CDrawContext* context)
{
	paint(context, VGuiRect(getViewSize()));
}

void VGuiGraphControl::drawRect(CDrawContext* context, const CRect& updateRect)
{
	paint(context, VGuiRect(updateRect).intersect(VGuiRect(getViewSize())));
}

void VGuiGraphControl::paint(CDrawContext* context, const VGuiRect& update)
{
	if (shown && isVisible())
		picture.paint(*shown, context, VGuiRect(getViewSize()), update);
	setDirty(false);
}

bool VGuiGraphControl::attached(CView* parent)
{
	const bool done = CControl::attached(parent);
	if (fitsParent)
		sizeToFit();
	refresh();
	return done;
}

bool VGuiGraphControl::removed(CView* parent)
{
	if (shown)
		shown->attached(false);
	return CControl::removed(parent);
}

CMouseEventResult VGuiGraphControl::result(bool handledByGraph)
{
	return handledByGraph ? kMouseEventHandled : kMouseEventNotHandled;
}

CMouseEventResult VGuiGraphControl::onMouseDown(CPoint& where, const CButtonState& buttons)
{
	const auto own = CControl::onMouseDown(where, buttons);
	return shown ? result(shown->onMouseDownEvent(where, buttons, this)) : own;
}

CMouseEventResult VGuiGraphControl::onMouseUp(CPoint& where, const CButtonState& buttons)
{
	const auto own = CControl::onMouseUp(where, buttons);
	return shown ? result(shown->onMouseUpEvent(where, buttons, this)) : own;
}

CMouseEventResult VGuiGraphControl::onMouseMoved(CPoint& where, const CButtonState& buttons)
{
	const auto own = CControl::onMouseMoved(where, buttons);
	return shown ? result(shown->onMouseMovedEvent(where, buttons, this)) : own;
}

CMouseEventResult VGuiGraphControl::onMouseCancel()
{
	const auto own = CControl::onMouseCancel();
	return shown ? result(shown->onMouseCancelledEvent(this)) : own;
}

CMouseEventResult VGuiGraphControl::onMouseEntered(CPoint& where, const CButtonState& buttons)
{
	const auto own = CControl::onMouseEntered(where, buttons);
	return shown ? result(shown->onMouseEnteredEvent(where, buttons, this)) : own;
}

CMouseEventResult VGuiGraphControl::onMouseExited(CPoint& where, const CButtonState& buttons)
{
	const auto own = CControl::onMouseExited(where, buttons);
	return shown ? result(shown->onMouseExitedEvent(where, buttons, this)) : own;
}

void VGuiGraphControl::onMouseWheelEvent(MouseWheelEvent& event)
{
	CControl::onMouseWheelEvent(event);
	if (!shown)
		return;
	const bool vertical = event.deltaY != 0.0;
	const CMouseWheelAxis axis = vertical ? kMouseWheelAxisY : kMouseWheelAxisX;
	const float distance = static_cast<float>(vertical ? event.deltaY : event.deltaX);
	CPoint where = event.mousePosition;
	if (shown->onMouseWheelEvent(where, axis, distance,
	                             buttonStateFromEventModifiers(event.modifiers), this))
		event.consumed = true;
}

void VGuiGraphControl::onKeyboardEvent(KeyboardEvent& event)
{
	CControl::onKeyboardEvent(event);
	if (!shown || (event.type != EventType::KeyDown && event.type != EventType::KeyUp))
		return;
	VstKeyCode key = toVstKeyCode(event);
	const bool handled = event.type == EventType::KeyDown ? shown->onKeyDownEvent(key, this)
	                                                      : shown->onKeyUpEvent(key, this);
	if (handled)
		event.consumed = true;
}

namespace {

// The plot that shows the data being adjusted.
constexpr int adjustPlotKind = 7;

} // namespace

void VGuiGraphControl::beginAdjust(VGuiGraphData* data)
{
	if (!data || !shown)
		return;
	adjustedData =
	    VGuiReference<VGuiGraphData>::adopt(new VGuiGraphData(data->count(), data->identifier()));
	std::copy(data->data(), data->data() + data->count(), adjustedData->data());
	adjustedPlot =
	    VGuiReference<VGuiLinePlot>::adopt(new VGuiLinePlot(adjustPlotKind, adjustedData.get()));
	if (auto* global = VGuiGlobalGraphProperties::instance())
		adjustedPlot->properties(
		    global->plotProperties[VGuiGlobalGraphProperties::FilterAdjustPowerSpectrum].get());
	adjustedPlot->setFocusable(false);
	shown->beginUpdate();
	shown->addPlot(adjustedPlot.get(), false);
	shown->endUpdate();
}

void VGuiGraphControl::trackAdjust(VGuiGraphData* data, VGuiGenericFilterSection* section)
{
	if (!adjustedPlot || !data || !section || data->count() != adjustedData->count())
		return;
	// A section's magnitude scales amplitudes; powers go by its square.
	const VGuiGraphAxis* y = shown->yAxis();
	const bool powers = y && y->power;
	for (int i = 0; i < data->count(); ++i)
	{
		const VGuiGraphPoint& p = (*data)[i];
		const double m = section->magnitude(p.x, false);
		(*adjustedData)[i].y = p.y * (powers ? m * m : m);
	}
	adjustedPlot->refresh(false);
}

void VGuiGraphControl::endAdjust(VGuiGenericFilterSection* section, bool cancelled)
{
	if (!adjustedPlot)
		return;
	shown->beginUpdate();
	shown->removePlot(adjustedPlot.get(), false);
	shown->endUpdate();
	VGuiPlotEditMsg message{this, section, cancelled};
	plotEditCallbacks.notify(&message);
	adjustedPlot.reset();
	adjustedData.reset();
}
