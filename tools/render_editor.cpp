// Renders the plug-in's window to a PNG file for a pan angle, offscreen, so
// that the editor can be looked at without a display. Given more angles, it
// draws the open editor once for each, side by side, the host setting each
// next angle while the editor stays open.
//
// usage: render_editor RESOURCE_DIR DEGREES [DEGREES...] OUTPUT.png
#include "editor_snapshot.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <vector>

int main(int argc, char** argv)
{
	if (argc < 4)
	{
		std::fprintf(stderr, "usage: %s RESOURCE_DIR DEGREES [DEGREES...] OUTPUT.png\n", argv[0]);
		return 2;
	}
	std::vector<double> angles;
	for (int i = 2; i < argc - 1; ++i)
	{
		char* end = nullptr;
		const double degrees = std::strtod(argv[i], &end);
		if (end == argv[i] || *end || degrees < -90.0 || degrees > 90.0)
		{
			std::fprintf(stderr, "render_editor: the angle must be a number from -90 to 90: %s\n",
			             argv[i]);
			return 2;
		}
		angles.push_back(degrees);
	}
	const char* output = argv[argc - 1];
	Steinberg::Vst::initEditorGraphics(argv[1]);
	const auto png = Steinberg::Vst::renderEditorPng(angles);
	Steinberg::Vst::exitEditorGraphics();
	if (png.empty())
	{
		std::fprintf(stderr, "render_editor: could not draw the editor (pictures in %s?)\n",
		             argv[1]);
		return 1;
	}
	std::ofstream out(output, std::ios::binary);
	out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
	if (!out.flush())
	{
		std::fprintf(stderr, "render_editor: cannot write %s\n", output);
		return 1;
	}
	return 0;
}
