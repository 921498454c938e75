#include "vgui/vguigfxpath.h"

VGuiGfxPath::VGuiGfxPath(const VGuiRect& r, const VGuiColour& lineColour,
                         const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
                         double lineWidth)
: VGuiGfxObject(r, 0.0, lineColour, fillColour, lineStyle, lineWidth)
{}

// The copy shares the finished path: paths are not changed once built, and
// beginPath on either object makes a new one.
VGuiGfxObject* VGuiGfxPath::copy() const
{
	return new VGuiGfxPath(*this);
}

void VGuiGfxPath::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	if (!path)
		return;
	const VGuiPoint shift = extent().topLeft() - home;
	drawShape(context, [&](VSTGUI::CGraphicsPath& shape) {
		VSTGUI::CGraphicsTransform move;
		move.translate(shift.x, shift.y);
		shape.addPath(*path, &move);
	});
}

VSTGUI::CGraphicsPath* VGuiGfxPath::beginPath(VSTGUI::CDrawContext* context)
{
	path = VSTGUI::owned(context->createGraphicsPath());
	home = extent().topLeft();
	return path;
}

void VGuiGfxPath::endPath()
{
	if (path)
		path->closeSubpath();
}
