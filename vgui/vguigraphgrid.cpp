#include "vgui/vguigraphgrid.h"

#include "vgui/vguigfxline.h"

#include <cmath>

VGuiGraphGrid::VGuiGraphGrid(VGuiGraphGridProperties* properties)
: props(properties ? VGuiReference<VGuiGraphGridProperties>(properties)
                   : VGuiReference<VGuiGraphGridProperties>::adopt(new VGuiGraphGridProperties))
{}

void VGuiGraphGrid::properties(VGuiGraphGridProperties* p)
{
	if (p)
		props.reset(p);
}

void VGuiGraphGrid::realizeBegin(double dx, double dy)
{
	lines.deleteAll();
	across = VGuiPoint(dx, dy);
}

void VGuiGraphGrid::realizeGridline(const VGuiPoint& p, double weight)
{
	VGuiColour colour = props->colour;
	colour.alpha = static_cast<uint8_t>(std::lround(colour.alpha * weight));
	lines.append(new VGuiGfxLine(p, p + across, colour, props->lineStyle, props->lineWidth));
}

void VGuiGraphGrid::realizeEnd()
{
	lines.findExtent();
}

void VGuiGraphGrid::draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	lines.draw(context, update);
}
