#include "vgui/vguigraphmarker.h"

#include "vgui/vguidpiscale.h"
#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxtext.h"
#include "vgui/vguigraph.h"
#include "vgui/vguigraphplot.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr VGuiColour noFill{0, 0, 0, 0};

VGuiGraphData* firstData(VGuiGraphPlot* plot)
{
	return plot && plot->dataCount() > 0 ? plot->dataItem(0) : nullptr;
}

// 6 points in whole pixels.
double crossSize()
{
	return std::trunc(VGuiDpiScale().pointsToPixels(6.0));
}

} // namespace

VGuiGraphMarker::VGuiGraphMarker(VGuiGraph* graph)
{
	registerGraph(graph);
	props.reset(graph && graph->markerProperties() ? graph->markerProperties() : nullptr);
	if (!props)
		props = VGuiReference<VGuiGraphMarkerProperties>::adopt(new VGuiGraphMarkerProperties);
}

VGuiGraphMarker::VGuiGraphMarker(VGuiGraphMarkerType type, VGuiGraph* graph, VGuiGraphPlot* plot,
                                 int index, const VGuiGraphPoint& point)
: VGuiGraphMarker(graph)
{
	kind = type;
	owningPlot = plot;
	data.reset(firstData(plot));
	dataIndex = index;
	this->point = point;
}

VGuiGraphMarker::VGuiGraphMarker(const VGuiGraphMarker& other)
: VGuiGraphElement(other.identifier()),
  kind(other.kind),
  props(other.props),
  owningPlot(other.owningPlot),
  data(other.data),
  dataIndex(other.dataIndex),
  point(other.point)
{
	registerGraph(other.owner);
}

void VGuiGraphMarker::properties(VGuiGraphMarkerProperties* p)
{
	if (p)
		props.reset(p);
}

void VGuiGraphMarker::notifyPlotReplaced(VGuiGraphPlot* old, VGuiGraphPlot* replacement)
{
	if (old != owningPlot || !owner)
		return;
	owningPlot = replacement;
	data.reset(firstData(replacement));
	if (owner->attached())
		owner->realize(this);
}

bool VGuiGraphMarker::shouldInvalidate(VGuiGraphChanges changes) const
{
	return changes != 0;
}

void VGuiGraphMarker::draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	group.draw(context, update);
}

VGuiGraphPoint VGuiGraphMarker::dataPoint(int i) const
{
	return data && i >= 0 && i < data->count() ? (*data)[i] : point;
}

VGuiPoint VGuiGraphMarker::screenPoint(int i) const
{
	VGuiPoint p;
	owner->map(p, dataPoint(i), true);
	return p;
}

bool VGuiGraphMarker::beginRealize()
{
	group.deleteAll();
	hit = VGuiRect();
	return owner != nullptr;
}

void VGuiGraphMarker::endRealize()
{
	group.findExtent();
	takeGroupExtent();
}

void VGuiGraphMarker::realizeMarkerCross(VSTGUI::CDrawContext*, const VGuiPoint& p)
{
	const double s = crossSize();
	const VGuiPoint cross[5] = {{p.x - s, p.y}, {p.x + s, p.y}, p, {p.x, p.y - s}, {p.x, p.y + s}};
	group.append(new VGuiGfxPolyline(cross, 5, props->crossColour, noFill, props->crossStyle, 1.0));
}

void VGuiGraphMarker::realizeMarkerTie(VSTGUI::CDrawContext*, const VGuiPoint& from,
                                       const VGuiPoint& to)
{
	const VGuiPoint tie[2] = {from, to};
	group.append(
	    new VGuiGfxPolyline(tie, 2, props->outlineColour, noFill, props->outlineStyle, 1.0));
}

void VGuiGraphMarker::realizeMarkerText(VSTGUI::CDrawContext* context, const VGuiPoint& anchor,
                                        const string_ext<char>& text, const VGuiFont& font,
                                        VSTGUI::CHoriTxtAlign align)
{
	auto* box = new VGuiGfxText(text.c_str(), font, anchor, props->textColour, props->faceColour,
	                            align, 0.0, props->outlineStyle);
	box->findExtent(context);
	// Kept inside the graph's extent: moved back by what sticks out.
	const VGuiRect room = owner->extent();
	const VGuiRect r = box->extent();
	const double dx = std::max(0.0, room.left - r.left) - std::max(0.0, r.right - room.right);
	const double dy = std::max(0.0, room.top - r.top) - std::max(0.0, r.bottom - room.bottom);
	box->moveBy(VGuiPoint(dx, dy));
	hit = box->extent();
	group.append(box);
}

void VGuiGraphMarker::realizeMarkerBracket(VSTGUI::CDrawContext* context, int i1, int i2,
                                           const string_ext<char>& text)
{
	const VGuiPoint a = screenPoint(i1);
	const VGuiPoint b = screenPoint(i2);
	const double top = std::max(owner->extent().top, std::min(a.y, b.y) - 2.0 * crossSize());
	const VGuiPoint bracket[4] = {a, {a.x, top}, {b.x, top}, b};
	group.append(
	    new VGuiGfxPolyline(bracket, 4, props->outlineColour, noFill, props->outlineStyle, 1.0));
	realizeMarkerText(context, VGuiPoint((a.x + b.x) / 2.0, top - 3.0 * crossSize()), text,
	                  props->font, VSTGUI::kCenterText);
	realizeMarkerCross(context, a);
	realizeMarkerCross(context, b);
}
