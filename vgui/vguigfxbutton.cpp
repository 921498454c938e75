#include "vgui/vguigfxbutton.h"

#include <algorithm>

namespace {

constexpr double kFrameWidth = 1.0;
// How far hovering lightens and pressing darkens the face (HLS lightness).
constexpr int kLightnessStep = 40;

VGuiColour shifted(const VGuiColour& c, int lightness)
{
	VGuiHls hls = c.toHLS();
	hls.lightness = std::clamp(hls.lightness + lightness, 0, 255);
	return hls.toRGB(c.alpha);
}

} // namespace

// A margin of minus half the frame's width draws the frame just inside the
// extent and keeps the physical extent equal to it.
VGuiGfxButton::VGuiGfxButton(const VGuiRect& r, const VGuiColour& lineColour,
                             const VGuiColour& faceColour, bool inside, bool pressed,
                             VSTGUI::CBitmap* bitmap)
: VGuiGfxObject(r, -kFrameWidth / 2.0, lineColour, faceColour, VSTGUI::kLineSolid, kFrameWidth),
  isInside(inside),
  isPressed(pressed),
  bitmap(bitmap)
{}

VGuiGfxObject* VGuiGfxButton::copy() const
{
	return new VGuiGfxButton(*this);
}

void VGuiGfxButton::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	const bool pushed = isPressed && isInside;
	const VGuiRect face = grown(extent(), margin());
	drawShape(context, faceColour(),
	          [&](VSTGUI::CGraphicsPath& path) { path.addRect(face.toCRect()); });
	if (!bitmap)
		return;
	const double push = pushed ? 1.0 : 0.0;
	const double left = (extent().left + extent().right - bitmap->getWidth()) / 2.0 + push;
	const double top = (extent().top + extent().bottom - bitmap->getHeight()) / 2.0 + push;
	context->drawBitmap(
	    bitmap, VSTGUI::CRect(left, top, left + bitmap->getWidth(), top + bitmap->getHeight()));
}

bool VGuiGfxButton::state(VGuiGfxState state, const VGuiPoint& p, VGuiRect& repaint)
{
	if (!transition(state, isIn(p)))
		return false;
	repaint = repaint.join(extent());
	return true;
}

bool VGuiGfxButton::transition(VGuiGfxState state, bool hit)
{
	bool changed = false;
	switch (state)
	{
	case VGuiGfxPointerMoved:
		changed = isInside != hit;
		isInside = hit;
		break;
	case VGuiGfxPointerLeft:
		changed = isInside;
		isInside = false;
		break;
	case VGuiGfxButtonPressed:
		changed = isInside != hit || isPressed != isInside;
		isInside = isPressed = hit;
		break;
	case VGuiGfxButtonReleased:
		changed = isInside != hit || isPressed;
		isInside = hit;
		isPressed = false;
		break;
	}
	return changed;
}

VGuiColour VGuiGfxButton::faceColour() const
{
	if (isPressed && isInside)
		return shifted(fillColour(), -kLightnessStep);
	if (isInside)
		return shifted(fillColour(), kLightnessStep);
	return fillColour();
}
