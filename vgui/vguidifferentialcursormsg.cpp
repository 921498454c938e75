#include "vgui/vguidifferentialcursormsg.h"

#include <cmath>

VGuiDifferentialCursorMsg::VGuiDifferentialCursorMsg(VGuiGraph* graph,
                                                     const string_ext<char>& label, int precision,
                                                     int dataId, double x1, double x2, double y1,
                                                     double y2)
: VGuiGraphCursorMsg(graph, label, precision, dataId),
  x1(x1),
  x2(x2),
  y1(y1),
  y2(y2)
{}

string_ext<char> VGuiDifferentialCursorMsg::textDifference() const
{
	if (!yLogarithmic)
		return formatted(yFormat, y2 - y1);
	if (!(y1 > 0.0) || !(y2 > 0.0))
		return "<Can't display> ";
	string_ext<char> text;
	text.sprintf("%.*g dB", digits, (yPower ? 10.0 : 20.0) * std::log10(y1 / y2));
	return text;
}
