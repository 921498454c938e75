// A difference read-out between two data points: "x1, x2, difference" and
// the label. On a logarithmic y axis the difference is the start over the
// current value in decibels (of power or amplitude as the axis is), or
// "<Can't display> " when either is not positive; otherwise the current
// value minus the start.
#pragma once

#include "vgui/vguigraphcursormsg.h"

class VGuiDifferentialCursorMsg : public VGuiGraphCursorMsg
{
public:
	enum
	{
		Type = 3
	};

	VGuiDifferentialCursorMsg(VGuiGraph* graph, const string_ext<char>& label, int precision,
	                          int dataId, double x1, double x2, double y1, double y2);

	string_ext<char> text() const override
	{
		return joined({textX1(), textX2(), textDifference()});
	}
	int type() const override { return Type; }
	string_ext<char> textX1() const { return formatted(xFormat, x1); }
	string_ext<char> textX2() const { return formatted(xFormat, x2); }
	string_ext<char> textDifference() const;

	double x1;
	double x2;
	double y1;
	double y2;
};
