#include "vgui/vguipolylinedecimator.h"

#include <algorithm>
#include <cmath>

void VGuiPolylineDecimator::moveTo(const VGuiPoint& p)
{
	if (drawing && p == last.point)
		return;
	flush();
	builder.moveTo(p);
	start(p);
}

void VGuiPolylineDecimator::lineTo(const VGuiPoint& p)
{
	if (!drawing)
	{
		moveTo(p);
		return;
	}
	if (std::floor(p.x) != column)
	{
		flush();
		builder.lineTo(p);
		start(p);
		return;
	}
	++count;
	if (p.y < lowest.point.y)
		lowest = {p, count};
	if (p.y > highest.point.y)
		highest = {p, count};
	last = {p, count};
}

void VGuiPolylineDecimator::finish()
{
	flush();
	drawing = false;
}

void VGuiPolylineDecimator::start(const VGuiPoint& p)
{
	drawing = true;
	column = std::floor(p.x);
	count = 0;
	lowest = highest = last = {p, 0};
}

void VGuiPolylineDecimator::flush()
{
	if (!drawing || count == 0)
		return;
	Held held[] = {lowest, highest, last};
	std::sort(std::begin(held), std::end(held),
	          [](const Held& a, const Held& b) { return a.order < b.order; });
	int passed = 0;
	for (const Held& h : held)
	{
		if (h.order > passed)
		{
			builder.lineTo(h.point);
			passed = h.order;
		}
	}
	count = 0;
}
