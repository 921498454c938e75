// A real VSTGUI drawing context to draw graphic objects into: an offscreen
// cairo bitmap cleared to white, whose pixels are read back through VSTGUI's
// own pixel access.
#pragma once

#include "vgui/vguicolour.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/vstguiinit.h"

namespace velora_test {

class OffscreenCanvas
{
public:
	OffscreenCanvas(int width, int height)
	{
		static const bool initialised = (VSTGUI::init(nullptr), true);
		(void)initialised;
		context = VSTGUI::COffscreenContext::create(VSTGUI::CPoint(width, height));
		context->beginDraw();
		context->setFillColor(VSTGUI::kWhiteCColor);
		context->drawRect(VSTGUI::CRect(0, 0, width, height), VSTGUI::kDrawFilled);
	}

	VSTGUI::CDrawContext* get() const { return context; }

	// Ends drawing on the first read.
	VGuiColour pixel(int x, int y)
	{
		if (!pixels)
		{
			context->endDraw();
			pixels = VSTGUI::owned(VSTGUI::CBitmapPixelAccess::create(context->getBitmap(), false));
		}
		VSTGUI::CColor c;
		pixels->setPosition(static_cast<uint32_t>(x), static_cast<uint32_t>(y));
		pixels->getColor(c);
		return VGuiColour(c);
	}

	int width() const { return static_cast<int>(context->getWidth()); }
	int height() const { return static_cast<int>(context->getHeight()); }

private:
	VSTGUI::SharedPointer<VSTGUI::COffscreenContext> context;
	VSTGUI::SharedPointer<VSTGUI::CBitmapPixelAccess> pixels;
};

} // namespace velora_test
