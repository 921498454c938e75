// Renders the plug-in's window to a PNG file for a pan angle, offscreen, so
// that the editor can be looked at without a display.
//
// usage: render_editor RESOURCE_DIR DEGREES OUTPUT.png
#include "editor_snapshot.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

int main(int argc, char** argv)
{
	if (argc != 4)
	{
		std::fprintf(stderr, "usage: %s RESOURCE_DIR DEGREES OUTPUT.png\n", argv[0]);
		return 2;
	}
	char* end = nullptr;
	const double degrees = std::strtod(argv[2], &end);
	if (end == argv[2] || *end || degrees < -90.0 || degrees > 90.0)
	{
		std::fprintf(stderr, "render_editor: the angle must be a number from -90 to 90: %s\n",
		             argv[2]);
		return 2;
	}
	Steinberg::Vst::initEditorGraphics(argv[1]);
	const auto png = Steinberg::Vst::renderEditorPng(degrees);
	Steinberg::Vst::exitEditorGraphics();
	if (png.empty())
	{
		std::fprintf(stderr, "render_editor: could not draw the editor (pictures in %s?)\n",
		             argv[1]);
		return 1;
	}
	std::ofstream out(argv[3], std::ios::binary);
	out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
	if (!out.flush())
	{
		std::fprintf(stderr, "render_editor: cannot write %s\n", argv[3]);
		return 1;
	}
	return 0;
}
