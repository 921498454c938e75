#include "vgui/vguilineplot.h"

#include "vgui/vguigfxpolylinebuilder.h"
#include "vgui/vguigraph.h"
#include "vgui/vguipolylinedecimator.h"

namespace {

// A curve is open: filling it closed back to its start would shade the area
// between the curve and its chord.
const VGuiColour kNoFill(0, 0, 0, 0);

} // namespace

void VGuiLinePlot::realize(VSTGUI::CDrawContext* context)
{
	if (!beginRealize(context))
		return;
	const VGuiGraphData& data = *held;
	VGuiGfxPolylineBuilder builder(data.count(), props->lineColour, kNoFill, props->lineStyle,
	                               props->lineWidth);
	VGuiPolylineDecimator line(builder);
	for (int i = 1; i < data.count(); ++i)
	{
		VGuiGraphPoint a = data[i - 1];
		VGuiGraphPoint b = data[i];
		if (!owner->clip(a, b))
			continue;
		VGuiPoint from;
		VGuiPoint to;
		owner->map(from, a, true);
		owner->map(to, b, true);
		line.moveTo(from);
		line.lineTo(to);
	}
	line.finish();
	group.takePolylines(builder, false);
	endRealize();
}

void VGuiLinePlot::draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	group.draw(context, update);
}
