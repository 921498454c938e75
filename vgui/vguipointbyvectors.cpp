#include "vgui/vguipointbyvectors.h"

bool VGuiPointByVectors::resolve(const VGuiPoint& p)
{
	const double determinant = u.x * v.y - u.y * v.x;
	if (determinant == 0.0)
		return false;
	const VGuiPoint w = p - origin;
	a = (w.x * v.y - w.y * v.x) / determinant;
	b = (u.x * w.y - u.y * w.x) / determinant;
	return true;
}
