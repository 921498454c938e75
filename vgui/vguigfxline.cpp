#include "vgui/vguigfxline.h"

namespace {

VGuiRect spanned(const VGuiPoint& a, const VGuiPoint& b)
{
	VGuiRect r(a.x, a.y, b.x, b.y);
	r.normalise();
	return r;
}

} // namespace

VGuiGfxLine::VGuiGfxLine(const VGuiPoint& from, const VGuiPoint& to, const VGuiColour& colour,
                         const VSTGUI::CLineStyle& lineStyle, double lineWidth)
: VGuiGfxObject(spanned(from, to), 0.0, colour, VGuiColour(0, 0, 0, 0), lineStyle, lineWidth),
  start(from),
  end(to)
{}

VGuiGfxObject* VGuiGfxLine::copy() const
{
	return new VGuiGfxLine(*this);
}

void VGuiGfxLine::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	drawShape(context, [this](VSTGUI::CGraphicsPath& path) {
		path.beginSubpath(start.toCPoint());
		path.addLine(end.toCPoint());
	});
}

VGuiPoint VGuiGfxLine::origin() const
{
	return start;
}

void VGuiGfxLine::moveBy(const VGuiPoint& d)
{
	start += d;
	end += d;
	VGuiGfxObject::moveBy(d);
}
