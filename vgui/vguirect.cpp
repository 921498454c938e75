#include "vgui/vguirect.h"

#include <algorithm>
#include <cmath>
#include <utility>

void VGuiRect::normalise()
{
	if (left > right)
		std::swap(left, right);
	if (top > bottom)
		std::swap(top, bottom);
}

VGuiRect VGuiRect::join(const VGuiRect& other) const
{
	if (isNull())
		return other.nullUnlessExtended();
	if (other.isNull())
		return nullUnlessExtended();
	return VGuiRect(std::min(left, other.left), std::min(top, other.top),
	                std::max(right, other.right), std::max(bottom, other.bottom))
	    .nullUnlessExtended();
}

VGuiRect VGuiRect::intersect(const VGuiRect& other) const
{
	return VGuiRect(std::max(left, other.left), std::max(top, other.top),
	                std::min(right, other.right), std::min(bottom, other.bottom))
	    .nullUnlessExtended();
}

void VGuiRect::moveBy(const VGuiPoint& d)
{
	left += d.x;
	right += d.x;
	top += d.y;
	bottom += d.y;
}

VGuiRect VGuiRect::nullUnlessExtended() const
{
	const bool ordered = left <= right && top <= bottom;
	const bool extended = width() != 0.0 || height() != 0.0;
	return ordered && extended ? *this : VGuiRect();
}

VGuiRect VGuiRect::pixelBounds() const
{
	return VGuiRect(std::floor(left - 1.0), std::floor(top - 1.0), std::ceil(right + 1.0),
	                std::ceil(bottom + 1.0));
}
