#include "vgui/vguigfxtext.h"

#include "vstgui/lib/platform/iplatformfont.h"

VGuiGfxText::VGuiGfxText(const char* text, const VGuiFont& font, const VGuiPoint& position,
                         const VGuiColour& textColour, const VGuiColour& background,
                         VSTGUI::CHoriTxtAlign align)
: VGuiGfxText(text, font, position, textColour, background, align, 0.0)
{}

VGuiGfxText::VGuiGfxText(const char* text, const VGuiFont& font, const VGuiPoint& position,
                         const VGuiColour& textColour, const VGuiColour& background,
                         VSTGUI::CHoriTxtAlign align, double angle)
: VGuiGfxObject(textColour, background, VSTGUI::kLineSolid, 0.0),
  str(text ? text : ""),
  font(font),
  position(position),
  align(align),
  degrees(angle)
{}

VGuiGfxText::VGuiGfxText(const char* text, const VGuiFont& font, const VGuiPoint& position,
                         const VGuiColour& textColour, const VGuiColour& background,
                         VSTGUI::CHoriTxtAlign align, double angle,
                         const VSTGUI::CLineStyle& frameStyle)
: VGuiGfxText(text, font, position, textColour, background, align, angle)
{
	setLineStyle(frameStyle);
	setLineWidth(1.0);
}

VGuiGfxObject* VGuiGfxText::copy() const
{
	return new VGuiGfxText(*this);
}

void VGuiGfxText::draw(VSTGUI::CDrawContext* context, const VGuiRect&) const
{
	const VGuiRect r = box(context);
	const VSTGUI::CDrawContext::Transform turned(*context, placement());
	drawShape(context,
	          [&](VSTGUI::CGraphicsPath& path) { path.addRect(grown(r, margin()).toCRect()); });
	context->setFontColor(lineColour().toCColor());
	context->drawString(str.c_str(), VSTGUI::CPoint(r.left, r.top + ascent()));
}

VGuiPoint VGuiGfxText::origin() const
{
	return position;
}

bool VGuiGfxText::isIn(const VGuiPoint& p) const
{
	VSTGUI::CPoint q = p.toCPoint();
	placement().inverse().transform(q);
	const VGuiRect r = grown(measured, margin() + lineWidth() / 2.0);
	return r.left <= q.x && q.x < r.right && r.top <= q.y && q.y < r.bottom;
}

void VGuiGfxText::moveBy(const VGuiPoint& d)
{
	position += d;
	VGuiGfxObject::moveBy(d);
}

void VGuiGfxText::findExtent(VSTGUI::CDrawContext* context)
{
	measured = box(context);
	const VSTGUI::CGraphicsTransform t = placement();
	VSTGUI::CPoint corners[] = {{measured.left, measured.top},
	                            {measured.right, measured.top},
	                            {measured.right, measured.bottom},
	                            {measured.left, measured.bottom}};
	VGuiPoint turned[4];
	for (int i = 0; i < 4; ++i)
		turned[i] = VGuiPoint(t.transform(corners[i]));
	setExtent(around(turned, 4));
}

void VGuiGfxText::text(const char* s, VSTGUI::CDrawContext* context)
{
	str = s ? s : "";
	findExtent(context);
}

VGuiRect VGuiGfxText::box(VSTGUI::CDrawContext* context) const
{
	context->setFont(font.fontDesc());
	const double width = context->getStringWidth(str.c_str());
	const double left = align == VSTGUI::kLeftText    ? 0.0
	                    : align == VSTGUI::kRightText ? -width
	                                                  : -width / 2.0;
	return VGuiRect(left, 0.0, left + width, ascent() + descent());
}

// Without the platform's metrics the font's size stands for the whole height.
double VGuiGfxText::ascent() const
{
	const VSTGUI::PlatformFontPtr metrics = font.fontDesc()->getPlatformFont();
	return metrics ? metrics->getAscent() : font.size();
}

double VGuiGfxText::descent() const
{
	const VSTGUI::PlatformFontPtr metrics = font.fontDesc()->getPlatformFont();
	return metrics ? metrics->getDescent() : 0.0;
}

VSTGUI::CGraphicsTransform VGuiGfxText::placement() const
{
	return VSTGUI::CGraphicsTransform().rotate(-degrees).translate(position.x, position.y);
}
