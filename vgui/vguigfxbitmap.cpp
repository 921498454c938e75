#include "vgui/vguigfxbitmap.h"

namespace {

VGuiRect placed(const VSTGUI::CBitmap* bitmap, const VGuiPoint& p)
{
	const double width = bitmap ? bitmap->getWidth() : 0.0;
	const double height = bitmap ? bitmap->getHeight() : 0.0;
	return VGuiRect(p.x, p.y, p.x + width, p.y + height);
}

} // namespace

VGuiGfxBitmap::VGuiGfxBitmap(VSTGUI::CBitmap* bitmap, const VGuiPoint& position,
                             const VGuiColour& colour)
: VGuiGfxObject(placed(bitmap, position), 0.0, colour, VGuiColour(0, 0, 0, 0), VSTGUI::kLineSolid,
                0.0),
  bitmap(bitmap)
{}

VGuiGfxObject* VGuiGfxBitmap::copy() const
{
	return new VGuiGfxBitmap(*this);
}

void VGuiGfxBitmap::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	if (bitmap)
		context->drawBitmap(bitmap, extent().toCRect(), VSTGUI::CPoint(0, 0),
		                    static_cast<float>(lineColour().alpha / 255.0));
}
