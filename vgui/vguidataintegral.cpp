#include "vgui/vguidataintegral.h"

#include "vgui/guiintegralcursormultiplier.h"
#include "vgui/vguigraphdata.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

double VGuiDataIntegral(const VGuiGraphData& data, int i1, int i2, double x1, double x2,
                        const GuiIntegralCursorMultiplier* multiplier)
{
	double sum = 0.0;
	for (int i = std::min(i1, i2); i <= std::max(i1, i2); ++i)
		sum += data[i].y;
	const double spacing =
	    multiplier ? multiplier->factor : std::fabs(x2 - x1) / (std::abs(i2 - i1) + 1);
	return spacing * sum;
}
