#include "vgui/vguigraphpoint.h"

#include <algorithm>

namespace {

void smallerPositive(double& result, double a, double b)
{
	if (a > 0.0 && b > 0.0)
		result = std::min(a, b);
	else if (a > 0.0)
		result = a;
	else if (b > 0.0)
		result = b;
}

} // namespace

void VGuiGraphPoint::minimumPositiveOf(const VGuiGraphPoint& a, const VGuiGraphPoint& b)
{
	smallerPositive(x, a.x, b.x);
	smallerPositive(y, a.y, b.y);
	smallerPositive(z, a.z, b.z);
}
