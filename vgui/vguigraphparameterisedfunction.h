// A curve in graph coordinates given by a parameter t from 0 to 1, from which
// graph data fill their points evenly along it.
#pragma once

#include "vgui/vguigraphpoint.h"

class VGuiGraphParameterisedFunction
{
public:
	virtual ~VGuiGraphParameterisedFunction() = default;

	// Writes the curve's point at t into p.
	virtual void valueAt(VGuiGraphPoint& p, double t) const = 0;
};
