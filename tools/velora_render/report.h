// The summary printed after a render.
#pragma once

#include "stereo_stats.h"

#include <cstdio>
#include <string>

namespace velora_render {

struct RenderReport
{
	std::string input;  // what was rendered
	std::string output; // where it went and in which format
	std::string plugin; // class name and bundle
	std::string pan;    // how the pan moved
	double sampleRate = 0.0;
	int blockSize = 0;
	double elapsedSeconds = 0.0;
	StereoStats levels;
};

void printReport(std::FILE* out, const RenderReport& report);

} // namespace velora_render
