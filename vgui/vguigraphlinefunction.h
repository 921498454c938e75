// The straight line from (x0, y0) to (x1, y1) at a constant z.
#pragma once

#include "vgui/vguigraphparameterisedfunction.h"

class VGuiGraphLineFunction : public VGuiGraphParameterisedFunction
{
public:
	VGuiGraphLineFunction(double x0, double y0, double x1, double y1, double z)
	: from(x0, y0, z),
	  to(x1, y1, z)
	{}
	// From a to b at a's z.
	VGuiGraphLineFunction(const VGuiGraphPoint& a, const VGuiGraphPoint& b)
	: VGuiGraphLineFunction(a.x, a.y, b.x, b.y, a.z)
	{}

	void valueAt(VGuiGraphPoint& p, double t) const override
	{
		p = VGuiGraphPoint(from.x + t * (to.x - from.x), from.y + t * (to.y - from.y), from.z);
	}

private:
	VGuiGraphPoint from;
	VGuiGraphPoint to;
};
