// The plot the graph benchmarks draw: a noisy sine of 20 periods over x from
// 0 to 1, within -1.2 .. 1.2, made the same way in every run.
#pragma once

#include "vgui/vguigraphdata.h"
#include "vgui/vguireference.h"

#include <cmath>

inline VGuiReference<VGuiGraphData> noisySine(int points)
{
	auto data = VGuiReference<VGuiGraphData>::adopt(new VGuiGraphData(points, 1));
	unsigned state = 1;
	for (int i = 0; i < points; ++i)
	{
		state = state * 1664525u + 1013904223u;
		const double noise = (state >> 8) / double(1 << 24) - 0.5;
		const double x = double(i) / (points - 1);
		(*data)[i] = VGuiGraphPoint(x, std::sin(2 * M_PI * 20 * x) + 0.3 * noise, 0);
	}
	return data;
}
