// An area read-out between two x values: "x1, x2, sum" and the label. The
// sum is printed in the y axis's units times the graph's integral
// multiplier's units, when it has one.
#pragma once

#include "vgui/vguigraphcursormsg.h"

class VGuiIntegralCursorMsg : public VGuiGraphCursorMsg
{
public:
	enum
	{
		Type = 2
	};

	VGuiIntegralCursorMsg(VGuiGraph* graph, const string_ext<char>& label, int precision,
	                      int dataId, double x1, double x2, double sum);

	string_ext<char> text() const override { return joined({textX1(), textX2(), textSum()}); }
	int type() const override { return Type; }
	string_ext<char> textX1() const { return formatted(xFormat, x1); }
	string_ext<char> textX2() const { return formatted(xFormat, x2); }
	string_ext<char> textSum() const { return formatted(sumFormat, sum); }

	double x1;
	double x2;
	double sum;

private:
	std::unique_ptr<OsiValueFormat> sumFormat;
};
