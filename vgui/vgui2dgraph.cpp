#include "vgui/vgui2dgraph.h"

#include "vgui/vguigfxframeborder.h"
#include "vgui/vguigfxrectangle.h"
#include "vgui/vguigfxtext.h"
#include "vgui/vguigraphaxis.h"
#include "vgui/vguigraphaxisproperties.h"
#include "vgui/vguigraphframeproperties.h"

#include <algorithm>

namespace {

// The bevel is sunken: the plot area lies below the window.
constexpr int kSunken = 1;
// Pixels between the graph's title and what lies below it.
constexpr double kTitleGap = 6.0;

} // namespace

VGui2dGraph::VGui2dGraph(GuiIntegralCursorMultiplier* multiplier) : VGuiGraph(multiplier) {}

VGui2dGraph::VGui2dGraph(GuiIntegralCursorMultiplier* multiplier, VGuiGraphAxis* x,
                         VGuiGraphAxis* y, VGuiGraphAxis* z)
: VGuiGraph(multiplier)
{
	replaceAxis(xAxisSlot(), x, xGrid(), VGuiGraphAllChanges, false);
	replaceAxis(yAxisSlot(), y, yGrid(), VGuiGraphAllChanges, false);
	replaceAxis(zAxisSlot(), z, nullptr, VGuiGraphAllChanges, false);
}

VGui2dGraph::VGui2dGraph(const VGui2dGraph& other)
: VGuiGraph(other),
  margins(other.margins),
  space(other.space)
{}

void VGui2dGraph::setMargins(double left, double top, double right, double bottom)
{
	beginUpdate();
	margins = VGuiRect(left, top, right, bottom);
	signalChanges(VGuiGraphExtentChanged);
	endUpdate();
}

void VGui2dGraph::borderSpace(double s)
{
	beginUpdate();
	space = s;
	signalChanges(VGuiGraphExtentChanged);
	endUpdate();
}

double VGui2dGraph::frameOutset() const
{
	return frameProperties()->bevelWidth + space;
}

VGuiRect VGui2dGraph::plotAreaFor(VSTGUI::CDrawContext* context, const VGuiRect& guess,
                                  double titleRoom) const
{
	int xAcross = 0;
	int xAlong = 0;
	int yAcross = 0;
	int yAlong = 0;
	for (VGuiGraphAxis* axis : {xAxis(), yAxis()})
	{
		if (!axis)
			continue;
		axis->place(guess, frameOutset());
		if (axis->isHorizontal())
			axis->margins(context, xAcross, xAlong);
		else
			axis->margins(context, yAcross, yAlong);
	}
	const double outset = frameOutset();
	const VGuiRect& e = extent();
	VGuiRect r(e.left + margins.left + std::max<double>(yAcross + outset, xAlong),
	           e.top + margins.top + titleRoom +
	               std::max<double>(yAlong + outset, frameProperties()->bevelWidth),
	           e.right - margins.right - std::max<double>(xAlong, frameProperties()->bevelWidth),
	           e.bottom - margins.bottom - xAcross - outset);
	r.right = std::max(r.right, r.left + 1.0);
	r.bottom = std::max(r.bottom, r.top + 1.0);
	return r;
}

void VGui2dGraph::realizeFrame(VSTGUI::CDrawContext* context)
{
	const VGuiGraphFrameProperties& p = *frameProperties();
	background.deleteAll();
	VGuiGfxText* heading = titleText(context);
	const double titleRoom = heading ? heading->extent().height() + kTitleGap : 0.0;
	// The axes' room depends on their labels, and the labels on the room
	// left for the plot area: a second pass settles them.
	VGuiRect area = plotAreaFor(context, plotArea().isNull() ? extent() : plotArea(), titleRoom);
	area = plotAreaFor(context, area, titleRoom);
	setPlotArea(area);

	background.append(new VGuiGfxRectangle(extent(), p.windowBackground, p.windowBackground,
	                                       VSTGUI::kLineSolid, 0.0));
	background.append(
	    new VGuiGfxRectangle(area, p.frameBackground, p.frameBackground, VSTGUI::kLineSolid, 0.0));
	if (heading)
	{
		heading->moveBy(VGuiPoint((area.left + area.right) / 2.0 - heading->origin().x, 0.0));
		background.append(heading);
	}
	background.findExtent();
	frame.deleteAll();
	frame.append(
	    new VGuiGfxFrameBorder(area, p.bevelWidth, p.frameHighlight, p.frameShadow, kSunken));
	frame.findExtent();
}

VGuiGfxText* VGui2dGraph::titleText(VSTGUI::CDrawContext* context) const
{
	if (title.empty())
		return nullptr;
	const VGuiGraphAxisProperties& a = *axisProperties();
	auto* text =
	    new VGuiGfxText(title.c_str(), a.titleFont, VGuiPoint(0.0, extent().top + margins.top),
	                    a.textColour, VGuiColour(0, 0, 0, 0), VSTGUI::kCenterText);
	text->findExtent(context);
	return text;
}

void VGui2dGraph::drawBackground(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	background.draw(context, update);
}

void VGui2dGraph::drawFrame(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	frame.draw(context, update);
}
