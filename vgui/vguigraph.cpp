#include "vgui/vguigraph.h"

#include "vgui/vguigraphaxis.h"
#include "vgui/vguigraphaxisproperties.h"
#include "vgui/vguigraphcursor.h"
#include "vgui/vguigraphframeproperties.h"
#include "vgui/vguigraphgrid.h"
#include "vgui/vguigraphgridproperties.h"
#include "vgui/vguigraphmarker.h"
#include "vgui/vguigraphmarkerproperties.h"
#include "vgui/vguigraphplot.h"
#include "vgui/vguilinesegment.h"

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cview.h"

#include <algorithm>
#include <cmath>

namespace {

template <typename T> VGuiReference<T> made()
{
	return VGuiReference<T>::adopt(new T);
}

double& component(VGuiGraphPoint& p, int i)
{
	return i == 0 ? p.x : i == 1 ? p.y : p.z;
}

double component(const VGuiGraphPoint& p, int i)
{
	return i == 0 ? p.x : i == 1 ? p.y : p.z;
}

// NaN differs from everything, itself included.
bool differs(double a, double b)
{
	return !(a == b);
}

// Zoom sizes are truncated to whole pixels; this keeps a factor of w / W
// times W from truncating w - 1e-13 down to w - 1.
constexpr double kPixelRounding = 1e-9;

} // namespace

VGuiGraph::VGuiGraph(GuiIntegralCursorMultiplier* multiplier)
: gridProps(made<VGuiGraphGridProperties>()),
  axisProps(made<VGuiGraphAxisProperties>()),
  frameProps(made<VGuiGraphFrameProperties>()),
  markerProps(made<VGuiGraphMarkerProperties>()),
  grids{VGuiReference<VGuiGraphGrid>::adopt(new VGuiGraphGrid(gridProps.get())),
        VGuiReference<VGuiGraphGrid>::adopt(new VGuiGraphGrid(gridProps.get()))},
  graphFocus(plotList.osiList()),
  multiplier(multiplier)
{}

VGuiGraph::VGuiGraph(const VGuiGraph& other)
: OsiReferenceCount(),
  title(other.title),
  bounds(other.bounds),
  plotRect(other.plotRect),
  gridProps(other.gridProps),
  axisProps(other.axisProps),
  frameProps(other.frameProps),
  markerProps(other.markerProps),
  grids{VGuiReference<VGuiGraphGrid>::adopt(new VGuiGraphGrid(gridProps.get())),
        VGuiReference<VGuiGraphGrid>::adopt(new VGuiGraphGrid(gridProps.get()))},
  largest(other.largest),
  smallest(other.smallest),
  smallestPositive(other.smallestPositive),
  graphFocus(plotList.osiList()),
  multiplier(other.multiplier)
{
	VGuiGraphAxis* const* from[] = {&other.x, &other.y, &other.z};
	VGuiGraphAxis** to[] = {&x, &y, &z};
	for (int i = 0; i < 3; ++i)
	{
		if (!*from[i])
			continue;
		VGuiGraphAxis* axis = (*from[i])->copy();
		replaceAxis(to[i], axis, i < 2 ? grids[i].get() : nullptr, VGuiGraphAllChanges, false);
		axis->release();
	}
}

VGuiGraph::~VGuiGraph()
{
	auto leave = [](VGuiGraphElement* e) { e->registerGraph(nullptr); };
	plotList.forEach(leave);
	markerList.forEach(leave);
	elementList.forEach(leave);
	realizeQueue.forEach(leave);
	if (cursor)
		cursor->registerGraph(nullptr);
	for (VGuiGraphAxis* axis : {x, y, z})
	{
		if (axis)
		{
			axis->registerGraph(nullptr);
			axis->release();
		}
	}
}

// Properties

void VGuiGraph::gridProperties(VGuiGraphGridProperties* p)
{
	if (!p)
		return;
	beginUpdate();
	gridProps.reset(p);
	for (VGuiReference<VGuiGraphGrid>& grid : grids)
		grid->properties(p);
	signalChanges(VGuiGraphPropertiesChanged);
	endUpdate();
}

void VGuiGraph::axisProperties(VGuiGraphAxisProperties* p)
{
	if (!p)
		return;
	beginUpdate();
	axisProps.reset(p);
	for (VGuiGraphAxis* axis : {x, y, z})
	{
		if (axis)
			axis->properties(p);
	}
	signalChanges(VGuiGraphPropertiesChanged);
	endUpdate();
}

void VGuiGraph::frameProperties(VGuiGraphFrameProperties* p)
{
	if (!p)
		return;
	beginUpdate();
	frameProps.reset(p);
	signalChanges(VGuiGraphPropertiesChanged);
	endUpdate();
}

void VGuiGraph::markerProperties(VGuiGraphMarkerProperties* p)
{
	if (!p)
		return;
	beginUpdate();
	markerProps.reset(p);
	signalChanges(VGuiGraphPropertiesChanged);
	endUpdate();
}

// Content

void VGuiGraph::addPlot(VGuiGraphPlot* plot, bool rescale)
{
	if (!plot || plotList.contains(plot))
		return;
	beginUpdate();
	plotList.append(plot);
	plot->registerGraph(this);
	realize(plot);
	rescaleIfAuto(rescale);
	endUpdate();
}

void VGuiGraph::removePlot(VGuiGraphPlot* plot, bool rescale)
{
	if (!plot || !plotList.contains(plot))
		return;
	beginUpdate();
	invalidateExtent(plot->extent());
	plot->registerGraph(nullptr);
	plotList.remove(plot);
	rescaleIfAuto(rescale);
	endUpdate();
}

void VGuiGraph::replacePlot(VGuiGraphPlot* old, VGuiGraphPlot* replacement, bool rescale)
{
	if (!replacement || !plotList.contains(old))
		return;
	beginUpdate();
	if (cursor)
		cursor->notifyPlotReplaced(old, replacement);
	markerList.forEach([&](VGuiGraphMarker* m) { m->notifyPlotReplaced(old, replacement); });
	if (old != replacement)
	{
		invalidateExtent(old->extent());
		old->registerGraph(nullptr);
		replacement->registerGraph(this);
		plotList.replace(old, replacement);
	}
	realize(replacement);
	rescaleIfAuto(rescale);
	endUpdate();
}

void VGuiGraph::removeAllPlots()
{
	beginUpdate();
	plotList.forEach([this](VGuiGraphPlot* p) {
		invalidateExtent(p->extent());
		p->registerGraph(nullptr);
	});
	plotList.releaseAll();
	endUpdate();
}

VGuiGraphPlot* VGuiGraph::plotWithId(int id) const
{
	return plotList.forFirst([id](VGuiGraphPlot* p) { return p->identifier() == id; });
}

void VGuiGraph::addMarker(VGuiGraphMarker* marker)
{
	if (!marker || markerList.contains(marker))
		return;
	beginUpdate();
	markerList.append(marker);
	marker->registerGraph(this);
	realize(marker);
	endUpdate();
}

void VGuiGraph::removeMarker(const VGuiPoint& p)
{
	VGuiGraphMarker* hit = markerList.forFirst([&p](VGuiGraphMarker* m) { return m->contains(p); });
	if (!hit)
		return;
	beginUpdate();
	invalidateExtent(hit->extent());
	hit->registerGraph(nullptr);
	markerList.remove(hit);
	endUpdate();
}

VGuiGraphMarker* VGuiGraph::markerWithId(int id) const
{
	return markerList.forFirst([id](VGuiGraphMarker* m) { return m->identifier() == id; });
}

void VGuiGraph::addElement(VGuiGraphElement* element)
{
	if (!element || elementList.contains(element))
		return;
	beginUpdate();
	elementList.append(element);
	element->registerGraph(this);
	realize(element);
	endUpdate();
}

void VGuiGraph::removeElement(VGuiGraphElement* element)
{
	if (!element || !elementList.contains(element))
		return;
	beginUpdate();
	invalidateExtent(element->extent());
	element->registerGraph(nullptr);
	elementList.remove(element);
	endUpdate();
}

VGuiGraphElement* VGuiGraph::elementWithId(int id) const
{
	return elementList.forFirst([id](VGuiGraphElement* e) { return e->identifier() == id; });
}

void VGuiGraph::isActive(VGuiGraphElement* element, bool active)
{
	if (!element)
		return;
	beginUpdate();
	element->setActive(active);
	invalidateExtent(element->extent());
	realize(element);
	endUpdate();
}

void VGuiGraph::graphCursor(VGuiGraphCursor* c)
{
	beginUpdate();
	if (cursor)
	{
		invalidateElement(cursor.get(), cursor->extent());
		cursor->registerGraph(nullptr);
	}
	cursor.reset(c);
	if (c)
	{
		c->registerGraph(this);
		realize(c);
	}
	endUpdate();
}

void VGuiGraph::replaceAxis(VGuiGraphAxis** slot, VGuiGraphAxis* axis, VGuiGraphGrid* grid,
                            VGuiGraphChanges c, bool copyAttributes)
{
	if (!slot)
		return;
	beginUpdate();
	VGuiGraphAxis* old = *slot;
	if (axis)
	{
		axis->lock();
		axis->properties(axisProps.get());
		if (copyAttributes && old)
			axis->copyAttributes(*old, false);
		axis->grid(grid);
		axis->registerGraph(this);
	}
	if (old)
	{
		invalidateExtent(old->extent());
		old->registerGraph(nullptr);
		old->release();
	}
	*slot = axis;
	signalChanges(c);
	endUpdate();
}

// Ranges

void VGuiGraph::maximum(const VGuiGraphPoint& p)
{
	beginUpdate();
	take(largest, p);
	endUpdate();
}

void VGuiGraph::minimum(const VGuiGraphPoint& p)
{
	beginUpdate();
	take(smallest, p);
	endUpdate();
}

void VGuiGraph::range(const VGuiGraphPoint& max, const VGuiGraphPoint& min,
                      const VGuiGraphPoint& minPositive)
{
	beginUpdate();
	takeRanges(max, min);
	smallestPositive = minPositive;
	endUpdate();
}

void VGuiGraph::takeRanges(const VGuiGraphPoint& max, const VGuiGraphPoint& min)
{
	take(largest, max);
	take(smallest, min);
}

void VGuiGraph::take(VGuiGraphPoint& bound, const VGuiGraphPoint& p)
{
	const VGuiGraphAxis* axes[] = {x, y, z};
	for (int i = 0; i < 3; ++i)
	{
		if (axes[i] && differs(component(bound, i), component(p, i)))
			signalChanges(VGuiGraphXRangeChanged << i);
	}
	bound = p;
}

void VGuiGraph::autoScale(bool on, bool rescaleNow)
{
	if (autoScaling == on)
		return;
	autoScaling = on;
	if (!on || !rescaleNow)
		return;
	beginUpdate();
	findGraphRange(false, false, false);
	endUpdate();
}

void VGuiGraph::rescaleIfAuto(bool rescale)
{
	if (rescale && autoScaling)
		findGraphRange(false, false, false);
}

void VGuiGraph::findGraphRange(bool excludeX, bool excludeY, bool excludeZ)
{
	const VGuiGraphPoint oldMax = largest;
	const VGuiGraphPoint oldMin = smallest;
	VGuiGraphPoint max;
	VGuiGraphPoint min;
	VGuiGraphPoint minPositive;
	bool first = true;
	plotList.forEach([&](VGuiGraphPlot* plot) {
		if (!plot->isActive())
			return;
		const VGuiGraphPoint pMax = plot->maximum();
		const VGuiGraphPoint pMin = plot->minimum();
		if (first)
		{
			max = pMax;
			min = pMin;
			minPositive = plot->minimumPositive(0.0);
			// Forced to zero, the start takes zero into the range.
			for (int i = 0; i < 3; ++i)
			{
				if (zeroIncluded & (1u << i))
					component(max, i) = component(min, i) = 0.0;
			}
			first = false;
		}
		else
			minPositive.minimumPositiveOf(minPositive, plot->minimumPositive(0.0));
		for (int i = 0; i < 3; ++i)
		{
			component(max, i) = std::max(component(max, i), component(pMax, i));
			component(min, i) = std::min(component(min, i), component(pMin, i));
		}
	});
	largest = max;
	smallest = min;
	smallestPositive = minPositive;
	limitLogarithmicRanges();
	const bool exclude[] = {excludeX, excludeY, excludeZ};
	updateExcludeChanges(exclude, oldMax, oldMin);
}

void VGuiGraph::limitLogarithmicRanges()
{
	const VGuiGraphAxis* axes[] = {x, y, z};
	for (int i = 0; i < 3; ++i)
	{
		if (!axes[i] || !axes[i]->isLogScale())
			continue;
		double& min = component(smallest, i);
		if (min <= 0.0)
			min = component(smallestPositive, i);
		min = std::max(min, component(largest, i) * axes[i]->maximumSpan());
	}
}

void VGuiGraph::updateExcludeChanges(const bool exclude[3], const VGuiGraphPoint& oldMax,
                                     const VGuiGraphPoint& oldMin)
{
	const VGuiGraphAxis* axes[] = {x, y, z};
	VGuiGraphPoint max = largest;
	VGuiGraphPoint min = smallest;
	for (int i = 0; i < 3; ++i)
	{
		if (!axes[i])
		{
			component(max, i) = component(oldMax, i);
			component(min, i) = component(oldMin, i);
			continue;
		}
		const bool grow = !exclude[i] && (scaleMode & (VGuiGraphGrowX << i));
		const bool shrink = !exclude[i] && (scaleMode & (VGuiGraphShrinkX << i));
		const bool logarithmic = axes[i]->isLogScale();
		// A bound moves outwards when the range may grow, inwards when it may
		// shrink; otherwise the old bound stays, unless it cannot be shown.
		auto settle = [&](double& bound, double old, bool outwards) {
			const bool allowed = outwards ? grow : shrink;
			const bool keepable = !std::isnan(old) && !(logarithmic && old <= 0.0);
			if (bound != old && !allowed && keepable)
				bound = old;
		};
		double& newMax = component(max, i);
		double& newMin = component(min, i);
		settle(newMax, component(oldMax, i), newMax > component(oldMax, i));
		settle(newMin, component(oldMin, i), newMin < component(oldMin, i));
	}
	largest = oldMax;
	smallest = oldMin;
	takeRanges(max, min);
}

void VGuiGraph::zoomAllX(VGuiGraphAutoScaleMode mode, double span)
{
	const double spans[] = {span, 0.0, 0.0};
	const bool exclude[] = {false, true, true};
	zoomAllAxes(mode, spans, exclude);
}

void VGuiGraph::zoomAllY(VGuiGraphAutoScaleMode mode, double span)
{
	const double spans[] = {0.0, span, 0.0};
	const bool exclude[] = {true, false, true};
	zoomAllAxes(mode, spans, exclude);
}

void VGuiGraph::zoomAllZ(VGuiGraphAutoScaleMode mode, double span)
{
	const double spans[] = {0.0, 0.0, span};
	const bool exclude[] = {true, true, false};
	zoomAllAxes(mode, spans, exclude);
}

void VGuiGraph::zoomAll(VGuiGraphAutoScaleMode mode, double xSpan, double ySpan, double zSpan)
{
	const double spans[] = {xSpan, ySpan, zSpan};
	const bool exclude[] = {false, false, false};
	zoomAllAxes(mode, spans, exclude);
}

void VGuiGraph::zoomAllAxes(VGuiGraphAutoScaleMode mode, const double spans[3],
                            const bool exclude[3])
{
	const VGuiGraphAutoScaleMode saved = scaleMode;
	if (!(mode & VGuiGraphUseStoredMode))
		scaleMode = mode;
	VGuiGraphAxis* axes[] = {x, y, z};
	beginUpdate();
	for (int i = 0; i < 3; ++i)
	{
		if (axes[i] && !exclude[i] && spans[i] > 0.0 && spans[i] < 200.0)
			axes[i]->maximumDecibelSpan(spans[i]);
	}
	findGraphRange(exclude[0], exclude[1], exclude[2]);
	endUpdate();
	scaleMode = saved;
}

void VGuiGraph::zoomIn(const VGuiPoint& a, const VGuiPoint& b)
{
	zoomBy(a, b, 0.707, true);
}

void VGuiGraph::zoomOut(const VGuiPoint& a, const VGuiPoint& b)
{
	zoomBy(a, b, 1.414, false);
}

void VGuiGraph::zoomBy(const VGuiPoint& a, const VGuiPoint& b, double clickFactor, bool in)
{
	const double left = std::min(a.x, b.x);
	const double top = std::min(a.y, b.y);
	const double w = std::fabs(a.x - b.x);
	const double h = std::fabs(a.y - b.y);
	const double plotW = plotRect.width();
	const double plotH = plotRect.height();
	const bool click = w <= 10.0 || h <= 10.0;
	const double fx = click ? clickFactor : in ? w / plotW : plotW / w;
	const double fy = click ? clickFactor : in ? h / plotH : plotH / h;
	const int zoomW = static_cast<int>(plotW * fx + kPixelRounding);
	const int zoomH = static_cast<int>(plotH * fy + kPixelRounding);
	// Centred on the dragged rectangle, halving in whole pixels.
	const VGuiPoint corner(left + static_cast<int>(w) / 2 - zoomW / 2 - plotRect.left,
	                       top + static_cast<int>(h) / 2 - zoomH / 2 - plotRect.top);
	const VGuiPoint opposite = corner + VGuiPoint(zoomW, zoomH);
	VGuiGraphPoint max = largest;
	VGuiGraphPoint min = smallest;
	const VGuiGraphAxis* axes[] = {x, y, z};
	for (int i = 0; i < 3; ++i)
	{
		if (!axes[i])
			continue;
		const double v1 = axes[i]->inverseMap(corner);
		const double v2 = axes[i]->inverseMap(opposite);
		component(max, i) = std::max(v1, v2);
		component(min, i) = std::min(v1, v2);
	}
	beginUpdate();
	takeRanges(max, min);
	updateDecibelSpan();
	endUpdate();
}

void VGuiGraph::pan(const VGuiPoint& from, const VGuiPoint& to)
{
	if (from == to)
		return;
	const VGuiPoint origin = plotRect.topLeft();
	const VGuiPoint f = from - origin;
	const VGuiPoint t = to - origin;
	VGuiGraphPoint max = largest;
	VGuiGraphPoint min = smallest;
	const VGuiGraphAxis* axes[] = {x, y, z};
	for (int i = 0; i < 3; ++i)
	{
		if (!axes[i])
			continue;
		// The z axis starts its maximum from the x axis's (kept as it is).
		const VGuiGraphAxis* maxFrom = i == 2 && x ? x : axes[i];
		double newMax = maxFrom->rangeMaximum();
		double newMin = axes[i]->rangeMinimum();
		axes[i]->pan(f, t, newMax, newMin);
		component(max, i) = newMax;
		component(min, i) = newMin;
	}
	beginUpdate();
	takeRanges(max, min);
	updateDecibelSpan();
	endUpdate();
}

void VGuiGraph::updateDecibelSpan()
{
	VGuiGraphAxis* axes[] = {x, y, z};
	for (int i = 0; i < 3; ++i)
	{
		if (axes[i] && axes[i]->isLogScale() && component(largest, i) > 0.0)
			axes[i]->span(component(smallest, i) / component(largest, i));
	}
}

// Mapping

bool VGuiGraph::map(VGuiPoint& p, const VGuiGraphPoint& g, bool absolute) const
{
	// The ranges' minima meet at the plot area's bottom left.
	p += VGuiPoint(absolute ? plotRect.left : 0.0,
	               (absolute ? plotRect.top : 0.0) + plotRect.height());
	bool inside = true;
	if (x)
		inside = x->map(p, g.x) && inside;
	if (y)
		inside = y->map(p, g.y) && inside;
	if (z)
		inside = z->accepts(g.z) && z->rangeMinimum() <= g.z && g.z <= z->rangeMaximum() && inside;
	return inside;
}

void VGuiGraph::inverseMap(VGuiGraphPoint& g, const VGuiPoint& p) const
{
	const VGuiPoint relative = p - plotRect.topLeft();
	if (x)
		g.x = x->inverseMap(relative);
	if (y)
		g.y = y->inverseMap(relative);
}

bool VGuiGraph::visible(const VGuiGraphPoint& g) const
{
	VGuiPoint unused;
	return map(unused, g, false);
}

bool VGuiGraph::clip(VGuiGraphPoint& a, VGuiGraphPoint& b) const
{
	if (!x || !y || !x->accepts(a.x) || !x->accepts(b.x) || !y->accepts(a.y) || !y->accepts(b.y))
		return false;
	// Straight on the screen is straight in the axes' own coordinates.
	const VGuiPoint ta(x->transform(a.x), y->transform(a.y));
	const VGuiPoint tb(x->transform(b.x), y->transform(b.y));
	const VGuiRect range(x->transformedMinimum(), y->transformedMinimum(), x->transformedMaximum(),
	                     y->transformedMaximum());
	auto inside = [&range](const VGuiPoint& p) {
		return range.left <= p.x && p.x <= range.right && range.top <= p.y && p.y <= range.bottom;
	};
	// Most segments of a plot lie wholly inside.
	if (inside(ta) && inside(tb))
		return true;
	VGuiLineSegment segment(ta, tb);
	if (!segment.clip(range))
		return false;
	if (segment.start != ta)
		a = VGuiGraphPoint(x->untransform(segment.start.x), y->untransform(segment.start.y), a.z);
	if (segment.end != tb)
		b = VGuiGraphPoint(x->untransform(segment.end.x), y->untransform(segment.end.y), b.z);
	return true;
}

// Focus

void VGuiGraph::focus(VGuiGraphPlot*& plot, VGuiGraphData*& data, VGuiGraphFocusOperation op) const
{
	switch (op)
	{
	case VGuiGraphFocusReset:
		plot = graphFocus.reset(data);
		break;
	case VGuiGraphFocusNext:
		plot = graphFocus.next(data);
		break;
	case VGuiGraphFocusPrevious:
		plot = graphFocus.previous(data);
		break;
	default:
		plot = graphFocus.current(data);
		break;
	}
}

// Update protocol

bool VGuiGraph::open()
{
	if (opened)
		return false;
	opened = true;
	isSuspended = false;
	return true;
}

void VGuiGraph::beginUpdate()
{
	if (opened)
		++updateDepth;
}

void VGuiGraph::endUpdate()
{
	if (!opened || updateDepth == 0)
		return;
	if (--updateDepth > 0)
		return;
	// Held at one, so that changes made while updating start no update of
	// their own.
	updateDepth = 1;
	graphUpdate();
	updateDepth = 0;
}

void VGuiGraph::realize(VGuiGraphElement* element)
{
	if (!element || !opened || element->isQueued())
		return;
	element->setQueued(true);
	realizeQueue.insert(element);
}

void VGuiGraph::invalidateFrame()
{
	invalidateExtent(bounds);
}

void VGuiGraph::invalidateElement(const VGuiGraphElement* element, const VGuiRect& r)
{
	if (element && element == cursor.get())
		invalid = invalid.join(r);
	else
		invalidateExtent(r);
}

VGuiRect VGuiGraph::takeStaleContent()
{
	const VGuiRect r = stale;
	stale = VGuiRect();
	return r;
}

void VGuiGraph::invalidateMarkers()
{
	markerList.forEach([this](VGuiGraphMarker* m) {
		invalidateExtent(m->extent());
		realize(m);
	});
}

void VGuiGraph::extent(const VGuiRect& r, VSTGUI::CView* view)
{
	beginUpdate();
	invalidateExtent(bounds);
	invalidateExtent(r);
	bounds = r;
	host = view;
	signalChanges(VGuiGraphAllChanges);
	endUpdate();
}

void VGuiGraph::graphUpdate()
{
	if (!isAttached || !opened || isSuspended || !host)
		return;
	VSTGUI::CDrawContext* context = layoutContext();
	if (changes)
	{
		realize(context);
		if (cursor)
			cursor->notifyAxesChanged();
		invalidateFrame();
	}
	realizeQueued(context);
	realizeElements(context);
	changes = 0;
	invalidateView();
}

VSTGUI::CDrawContext* VGuiGraph::layoutContext()
{
	if (!measuring)
		measuring = VSTGUI::COffscreenContext::create(VSTGUI::CPoint(1, 1));
	return measuring;
}

void VGuiGraph::realize(VSTGUI::CDrawContext* context)
{
	pushRanges();
	realizeFrame(context);
	realizeAxis(context);
	realizePlots(context);
	realizeMarkers(context);
}

void VGuiGraph::pushRanges()
{
	VGuiGraphAxis* axes[] = {x, y, z};
	for (int i = 0; i < 3; ++i)
	{
		if (axes[i])
			axes[i]->range(component(largest, i), component(smallest, i));
	}
}

void VGuiGraph::setPlotArea(const VGuiRect& r)
{
	if (r != plotRect)
		signalChanges(VGuiGraphExtentChanged);
	plotRect = r;
}

void VGuiGraph::realizeAxis(VSTGUI::CDrawContext* context)
{
	for (VGuiGraphAxis* axis : {x, y, z})
	{
		if (!axis)
			continue;
		axis->place(plotRect, frameOutset());
		axis->realize(context);
	}
}

void VGuiGraph::realizePlots(VSTGUI::CDrawContext* context)
{
	plotList.forEach([&](VGuiGraphPlot* p) {
		if (p->isActive() && !p->isQueued() && p->shouldInvalidate(changes))
			p->realize(context);
	});
}

void VGuiGraph::realizeMarkers(VSTGUI::CDrawContext* context)
{
	markerList.forEach([&](VGuiGraphMarker* m) {
		if (!m->isQueued() && m->shouldInvalidate(changes))
			m->realize(context);
	});
}

void VGuiGraph::realizeQueued(VSTGUI::CDrawContext* context)
{
	while (VGuiGraphElement* element = realizeQueue.takeLast())
	{
		realizeInvalidating(element, context);
		element->setQueued(false);
		element->release();
	}
}

void VGuiGraph::realizeElements(VSTGUI::CDrawContext* context)
{
	auto contribute = [&](VGuiGraphElement* e) {
		if (e->isActive() && e->shouldInvalidate(changes))
			realizeInvalidating(e, context);
	};
	elementList.forEach(contribute);
	if (cursor)
		contribute(cursor.get());
}

void VGuiGraph::realizeInvalidating(VGuiGraphElement* element, VSTGUI::CDrawContext* context)
{
	invalidateElement(element, element->extent());
	element->realize(context);
	invalidateElement(element, element->extent());
}

void VGuiGraph::invalidateView()
{
	if (invalid.isNull())
	{
		host->setDirty(false);
		return;
	}
	const VGuiRect r = invalid.pixelBounds();
	invalid = VGuiRect();
	host->invalidRect(r.toCRect());
}

// Events

template <typename Call> bool VGuiGraph::dispatch(Call call)
{
	VGuiGraphElementQueue receivers;
	elementList.forEach([&](VGuiGraphElement* e) { receivers.insert(e); });
	if (!markerList.isEmpty())
		markerList.forEach([&](VGuiGraphMarker* m) { receivers.insert(m); });
	if (cursor)
		receivers.insert(cursor.get());
	bool passOn = true;
	while (VGuiGraphElement* receiver = receivers.takeLast())
	{
		if (passOn)
			passOn = call(receiver);
		receiver->release();
	}
	return passOn;
}

bool VGuiGraph::onKeyDownEvent(VstKeyCode& key, VSTGUI::CView* view)
{
	return dispatch([&](VGuiGraphElement* e) { return e->onKeyDownEvent(key, view); });
}

bool VGuiGraph::onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view)
{
	return dispatch([&](VGuiGraphElement* e) { return e->onKeyUpEvent(key, view); });
}

bool VGuiGraph::onMouseDownEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
                                 VSTGUI::CView* view)
{
	bool handled = true;
	return dispatch(
	    [&](VGuiGraphElement* e) { return e->onMouseDownEvent(where, buttons, handled, view); });
}

bool VGuiGraph::onMouseUpEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
                               VSTGUI::CView* view)
{
	bool handled = true;
	return dispatch(
	    [&](VGuiGraphElement* e) { return e->onMouseUpEvent(where, buttons, handled, view); });
}

bool VGuiGraph::onMouseMovedEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
                                  VSTGUI::CView* view)
{
	bool handled = true;
	return dispatch(
	    [&](VGuiGraphElement* e) { return e->onMouseMovedEvent(where, buttons, handled, view); });
}

bool VGuiGraph::onMouseEnteredEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
                                    VSTGUI::CView* view)
{
	bool handled = true;
	return dispatch(
	    [&](VGuiGraphElement* e) { return e->onMouseEnteredEvent(where, buttons, handled, view); });
}

bool VGuiGraph::onMouseExitedEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
                                   VSTGUI::CView* view)
{
	bool handled = true;
	return dispatch(
	    [&](VGuiGraphElement* e) { return e->onMouseExitedEvent(where, buttons, handled, view); });
}

bool VGuiGraph::onMouseCancelledEvent(VSTGUI::CView* view)
{
	bool handled = true;
	return dispatch([&](VGuiGraphElement* e) { return e->onMouseCancelledEvent(handled, view); });
}

bool VGuiGraph::onMouseWheelEvent(VSTGUI::CPoint& where, const VSTGUI::CMouseWheelAxis& axis,
                                  const float& distance, const VSTGUI::CButtonState& buttons,
                                  VSTGUI::CView* view)
{
	bool handled = true;
	return dispatch([&](VGuiGraphElement* e) {
		return e->onMouseWheelEvent(where, axis, distance, buttons, handled, view);
	});
}

// Painting

void VGuiGraph::paint(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	paintContent(context, update);
	paintCursor(context, update);
}

void VGuiGraph::paintContent(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	drawBackground(context, update);
	{
		// Data that leave the plot area are cut at its edge.
		VSTGUI::CRect clip;
		context->getClipRect(clip);
		const VGuiRect inside = plotRect.intersect(VGuiRect(clip));
		context->setClipRect(inside.toCRect());
		for (VGuiGraphAxis* axis : {x, y, z})
		{
			if (axis && axis->grid())
				axis->grid()->draw(context, update);
		}
		plotList.forEach([&](VGuiGraphPlot* p) {
			if (p->isActive())
				p->draw(context, update);
		});
		context->setClipRect(clip);
	}
	for (VGuiGraphAxis* axis : {x, y, z})
	{
		if (axis)
			axis->draw(context, update);
	}
	drawFrame(context, update);
	markerList.forEach([&](VGuiGraphMarker* m) { m->draw(context, update); });
	elementList.forEach([&](VGuiGraphElement* e) {
		if (e->isActive())
			e->draw(context, update);
	});
}

void VGuiGraph::paintCursor(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	if (cursor)
		cursor->draw(context, update);
}
