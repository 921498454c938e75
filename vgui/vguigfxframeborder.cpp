#include "vgui/vguigfxframeborder.h"

namespace {

constexpr int kStyles = 4;

} // namespace

// The two colours ride in the line and fill colours; the bevels are filled
// only.
VGuiGfxFrameBorder::VGuiGfxFrameBorder(const VGuiRect& r, double width, const VGuiColour& highlight,
                                       const VGuiColour& shadow, int style)
: VGuiGfxObject(r, 0.0, highlight, shadow, VSTGUI::kLineSolid, 0.0)
{
	init(r, width, style);
}

VGuiGfxObject* VGuiGfxFrameBorder::copy() const
{
	return new VGuiGfxFrameBorder(*this);
}

void VGuiGfxFrameBorder::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	for (int i = 0; i < count; ++i)
	{
		const Bevel& bevel = bevels[i];
		drawShape(context, bevel.lit ? highlight() : shadow(), [&](VSTGUI::CGraphicsPath& path) {
			path.beginSubpath(bevel.corners[0].toCPoint());
			for (int c = 1; c < 6; ++c)
				path.addLine(bevel.corners[c].toCPoint());
			path.closeSubpath();
		});
	}
}

void VGuiGfxFrameBorder::moveBy(const VGuiPoint& d)
{
	for (int i = 0; i < count; ++i)
		for (VGuiPoint& corner : bevels[i].corners)
			corner += d;
	VGuiGfxObject::moveBy(d);
}

void VGuiGfxFrameBorder::init(const VGuiRect& r, double width, int style)
{
	if (style < 0 || style >= kStyles)
		return;
	count = 0;
	const VGuiRect outer = grown(r, width);
	if (style < 2)
	{
		addBand(r, outer, style == 0);
	}
	else
	{
		const VGuiRect middle = grown(r, width / 2.0);
		addBand(middle, outer, style == 3);
		addBand(r, middle, style == 2);
	}
	setExtent(outer);
}

void VGuiGfxFrameBorder::addBand(const VGuiRect& inner, const VGuiRect& outer, bool raised)
{
	bevels[count++] = {{{outer.left, outer.bottom},
	                    {outer.left, outer.top},
	                    {outer.right, outer.top},
	                    {inner.right, inner.top},
	                    {inner.left, inner.top},
	                    {inner.left, inner.bottom}},
	                   raised};
	bevels[count++] = {{{outer.right, outer.top},
	                    {outer.right, outer.bottom},
	                    {outer.left, outer.bottom},
	                    {inner.left, inner.bottom},
	                    {inner.right, inner.bottom},
	                    {inner.right, inner.top}},
	                   !raised};
}
