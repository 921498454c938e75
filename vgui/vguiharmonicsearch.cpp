#include "vgui/vguiharmonicsearch.h"

#include "vgui/vguigraphdata.h"

#include <cmath>

int VGuiHarmonicSearch(const VGuiGraphData& d, int i, VGuiGraphPoint* harmonics, int count)
{
	const int n = d.count();
	const double f0 = harmonics[0].x;
	int found = 1;
	if (!(f0 > 0.0))
		return found;
	const int step = std::fabs(d[n - 1].x) >= std::fabs(d[0].x) ? 1 : -1;
	double target = 2.0 * f0;
	for (; found < count && i >= 0 && i < n; i += step)
	{
		const double x = std::fabs(d[i].x);
		// A point may serve several targets when the data are sparse.
		while (x >= target && found < count)
		{
			const int before = i - step;
			const bool beforeNearer =
			    before >= 0 && before < n &&
			    std::fabs(std::fabs(d[before].x) - target) < std::fabs(x - target);
			const VGuiGraphPoint& chosen = d[beforeNearer ? before : i];
			harmonics[found++] = VGuiGraphPoint(std::fabs(chosen.x), chosen.y, 0.0);
			target += f0;
		}
	}
	return found;
}
