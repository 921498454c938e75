#include "vgui/vguiparallelogram.h"

#include "vgui/vguipointbyvectors.h"

#include <algorithm>

VGuiRect VGuiParallelogram::extent() const
{
	const VGuiPoint w = oppositeCorner();
	return VGuiRect(
	    std::min({origin.x, uEnd.x, vEnd.x, w.x}), std::min({origin.y, uEnd.y, vEnd.y, w.y}),
	    std::max({origin.x, uEnd.x, vEnd.x, w.x}), std::max({origin.y, uEnd.y, vEnd.y, w.y}));
}

bool VGuiParallelogram::mapPoint(VGuiPoint& p, const VGuiParallelogram& onto) const
{
	VGuiPointByVectors here(origin, uEnd, vEnd, 0.0, 0.0);
	if (!here.resolve(p))
		return false;
	p = VGuiPointByVectors(onto.origin, onto.uEnd, onto.vEnd, here.a, here.b).point();
	return true;
}

bool VGuiParallelogram::mapParallelogram(VGuiParallelogram& p, const VGuiParallelogram& onto) const
{
	VGuiParallelogram image = p;
	if (!mapPoint(image.origin, onto) || !mapPoint(image.uEnd, onto) || !mapPoint(image.vEnd, onto))
		return false;
	p = image;
	return true;
}

bool VGuiParallelogram::mapRect(const VGuiRect& r, const VGuiParallelogram& onto,
                                VGuiParallelogram& image) const
{
	VGuiParallelogram p(r);
	if (!mapParallelogram(p, onto))
		return false;
	image = p;
	return true;
}
