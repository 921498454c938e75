#include "trace_legend.h"

#include "vstgui/lib/cdrawcontext.h"

#include <algorithm>

namespace velora_scope {
namespace {

constexpr double kRow = 16.0;
constexpr double kStroke = 24.0;
constexpr double kMargin = 6.0;

} // namespace

TraceLegend::TraceLegend(const SpectrumTraces& traces)
: traces(traces),
  font(VSTGUI::makeOwned<VSTGUI::CFontDesc>("Arial", 11))
{}

void TraceLegend::draw(VSTGUI::CDrawContext* context, const VGuiRect& plotArea) const
{
	if (traces.traces().empty())
		return;
	context->setFont(font);
	double longest = 0.0;
	for (const auto& trace : traces.traces())
		longest = std::max(longest, context->getStringWidth(trace.label.c_str()));
	const double width = 3 * kMargin + kStroke + longest;
	const double height = 2 * kMargin + kRow * static_cast<double>(traces.traces().size());
	const double right = plotArea.right - kMargin;
	const VSTGUI::CRect box(right - width, plotArea.top + kMargin, right,
	                        plotArea.top + kMargin + height);
	context->setFillColor(VSTGUI::CColor(0, 0, 0, 200));
	context->setFrameColor(VSTGUI::CColor(128, 128, 128));
	context->setLineWidth(1);
	context->drawRect(box, VSTGUI::kDrawFilledAndStroked);
	double y = box.top + kMargin;
	for (const auto& trace : traces.traces())
	{
		const double middle = y + kRow / 2;
		context->setFrameColor(trace.colour.toCColor());
		context->setLineWidth(2);
		context->drawLine(VSTGUI::CPoint(box.left + kMargin, middle),
		                  VSTGUI::CPoint(box.left + kMargin + kStroke, middle));
		context->setFontColor(trace.colour.toCColor());
		const double textLeft = box.left + 2 * kMargin + kStroke;
		context->drawString(VSTGUI::UTF8String(trace.label),
		                    VSTGUI::CRect(textLeft, y, box.right - kMargin, y + kRow),
		                    VSTGUI::kLeftText);
		y += kRow;
	}
}

} // namespace velora_scope
