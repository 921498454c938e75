#include "vgui/vguigraphcursormsg.h"

#include "vgui/vguigraph.h"
#include "vgui/vguigraphaxis.h"

VGuiGraphCursorMsg::VGuiGraphCursorMsg(VGuiGraph* graph, const string_ext<char>& label,
                                       int precision, int dataId)
: label(label),
  digits(precision),
  id(dataId)
{
	notifyAxesChanged(graph);
}

void VGuiGraphCursorMsg::notifyAxesChanged(VGuiGraph* graph)
{
	const VGuiGraphAxis* x = graph ? graph->xAxis() : nullptr;
	const VGuiGraphAxis* y = graph ? graph->yAxis() : nullptr;
	xFormat = x ? x->createValueFormat() : nullptr;
	yFormat = y ? y->createValueFormat() : nullptr;
	xLogarithmic = x && x->isLogScale();
	yLogarithmic = y && y->isLogScale();
	xPower = x && x->power;
	yPower = y && y->power;
}

string_ext<char> VGuiGraphCursorMsg::formatted(const std::unique_ptr<OsiValueFormat>& format,
                                               double value) const
{
	return format ? format->format(value, digits) : string_ext<char>();
}

string_ext<char> VGuiGraphCursorMsg::joined(std::initializer_list<string_ext<char>> parts) const
{
	string_ext<char> text;
	for (const auto& part : parts)
	{
		if (part.empty())
			continue;
		if (!text.empty())
			text += ", ";
		text += part;
	}
	text += label;
	return text;
}
