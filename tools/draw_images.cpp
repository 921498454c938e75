// Draws the editor's two pictures: the panel (background.png) and the knob
// (knob.png), fitted to the editor's layout. The window takes its size from
// the panel.
//
// usage: draw_images OUTPUT_DIR
#include "nxvelora_editor_layout.h"

#include <cairo.h>

#include <cmath>
#include <cstdio>
#include <string>

namespace {

using namespace Steinberg::Vst::EditorLayout;

void roundedRect(cairo_t* cr, double x, double y, double w, double h, double r)
{
	cairo_new_sub_path(cr);
	cairo_arc(cr, x + w - r, y + r, r, -M_PI / 2, 0);
	cairo_arc(cr, x + w - r, y + h - r, r, 0, M_PI / 2);
	cairo_arc(cr, x + r, y + h - r, r, M_PI / 2, M_PI);
	cairo_arc(cr, x + r, y + r, r, M_PI, 1.5 * M_PI);
	cairo_close_path(cr);
}

void text(cairo_t* cr, double x, double y, double size, const char* s, bool centred = false)
{
	cairo_select_font_face(cr, "Liberation Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
	cairo_set_font_size(cr, size);
	cairo_text_extents_t ext;
	cairo_text_extents(cr, s, &ext);
	cairo_move_to(cr, centred ? x - ext.width / 2 - ext.x_bearing : x, y);
	cairo_show_text(cr, s);
}

// A loudspeaker seen from the front: a cabinet with one cone.
void speaker(cairo_t* cr, double cx, double cy)
{
	roundedRect(cr, cx - 9, cy - 12, 18, 24, 3);
	cairo_set_source_rgb(cr, 0.22, 0.24, 0.27);
	cairo_fill(cr);
	cairo_arc(cr, cx, cy + 2, 6, 0, 2 * M_PI);
	cairo_set_source_rgb(cr, 0.62, 0.66, 0.70);
	cairo_fill(cr);
	cairo_arc(cr, cx, cy - 7, 2, 0, 2 * M_PI);
	cairo_fill(cr);
}

void drawScale(cairo_t* cr)
{
	const double inner = kKnobSize / 2.0 + 3;
	for (int deg = -90; deg <= 90; deg += 15)
	{
		const double a = kKnobStartAngle + (deg + 90) / 180.0 * kKnobRangeAngle;
		const double outer = inner + (deg % 45 == 0 ? 7 : 4);
		cairo_move_to(cr, kKnobCentreX + inner * std::cos(a), kKnobCentreY + inner * std::sin(a));
		cairo_line_to(cr, kKnobCentreX + outer * std::cos(a), kKnobCentreY + outer * std::sin(a));
	}
	cairo_set_source_rgb(cr, 0.13, 0.13, 0.13);
	cairo_set_line_width(cr, 1.5);
	cairo_stroke(cr);
	// The zone beyond +-30 degrees, where the far channel turns phase-inverted.
	for (int side : {-1, 1})
	{
		const double a0 = kKnobStartAngle + (side < 0 ? 0.0 : 120.0 / 180.0) * kKnobRangeAngle;
		const double a1 = a0 + 60.0 / 180.0 * kKnobRangeAngle;
		cairo_arc(cr, kKnobCentreX, kKnobCentreY, inner - 1.5, a0, a1);
		cairo_set_source_rgb(cr, 0.80, 0.36, 0.18);
		cairo_set_line_width(cr, 2.5);
		cairo_stroke(cr);
	}
	cairo_set_source_rgb(cr, 0.13, 0.13, 0.13);
	text(cr, kKnobCentreX - 44, kKnobCentreY + 48, 9, "L");
	text(cr, kKnobCentreX + 38, kKnobCentreY + 48, 9, "R");
	text(cr, kKnobCentreX, kKnobCentreY - 46, 9, "0", true);
}

bool drawBackground(const std::string& path)
{
	cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kPanelWidth, kPanelHeight);
	cairo_t* cr = cairo_create(s);
	cairo_pattern_t* g = cairo_pattern_create_linear(0, 0, 0, kPanelHeight);
	cairo_pattern_add_color_stop_rgb(g, 0, 0.86, 0.87, 0.85);
	cairo_pattern_add_color_stop_rgb(g, 1, 0.72, 0.74, 0.72);
	cairo_rectangle(cr, 0, 0, kPanelWidth, kPanelHeight);
	cairo_set_source(cr, g);
	cairo_fill(cr);
	cairo_pattern_destroy(g);

	// Title bar.
	cairo_rectangle(cr, 0, 0, kPanelWidth, 26);
	cairo_set_source_rgb(cr, 0.16, 0.18, 0.21);
	cairo_fill(cr);
	cairo_set_source_rgb(cr, 0.93, 0.93, 0.90);
	text(cr, 10, 18, 13, "TORVIK VELORA");
	cairo_set_source_rgb(cr, 0.80, 0.36, 0.18);
	text(cr, 150, 18, 10, "STEREO PAN");

	drawScale(cr);

	// The two loudspeakers above the readout, with the widened image between them.
	speaker(cr, 130, 52);
	speaker(cr, 210, 52);
	cairo_set_source_rgb(cr, 0.80, 0.36, 0.18);
	cairo_set_line_width(cr, 1.5);
	cairo_arc(cr, 170, 80, 46, 1.18 * M_PI, 1.82 * M_PI);
	cairo_stroke(cr);

	// Readout well around the value display and its label.
	const double wellLeft = kDisplayBox.left - 4;
	const double wellTop = kDisplayBox.top - 2;
	const double wellRight = kLabelBox.right + 5;
	const double wellBottom = kDisplayBox.bottom + 2;
	roundedRect(cr, wellLeft, wellTop, wellRight - wellLeft, wellBottom - wellTop, 4);
	cairo_set_source_rgba(cr, 1, 1, 1, 0.55);
	cairo_fill_preserve(cr);
	cairo_set_source_rgb(cr, 0.45, 0.47, 0.46);
	cairo_set_line_width(cr, 1);
	cairo_stroke(cr);

	cairo_set_source_rgb(cr, 0.35, 0.36, 0.36);
	text(cr, 110, 130, 9, "mono in  \xE2\x86\x92  stereo out");

	cairo_destroy(cr);
	const bool ok = cairo_surface_write_to_png(s, path.c_str()) == CAIRO_STATUS_SUCCESS;
	cairo_surface_destroy(s);
	return ok;
}

bool drawKnob(const std::string& path)
{
	cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kKnobSize, kKnobSize);
	cairo_t* cr = cairo_create(s);
	const double c = kKnobSize / 2.0;
	// Shadow, body and a lit rim.
	cairo_arc(cr, c + 1, c + 2, c - 3, 0, 2 * M_PI);
	cairo_set_source_rgba(cr, 0, 0, 0, 0.25);
	cairo_fill(cr);
	cairo_pattern_t* g = cairo_pattern_create_radial(c - 8, c - 10, 2, c, c, c - 3);
	cairo_pattern_add_color_stop_rgb(g, 0, 0.55, 0.57, 0.60);
	cairo_pattern_add_color_stop_rgb(g, 1, 0.17, 0.18, 0.20);
	cairo_arc(cr, c, c, c - 4, 0, 2 * M_PI);
	cairo_set_source(cr, g);
	cairo_fill(cr);
	cairo_pattern_destroy(g);
	cairo_arc(cr, c, c, c - 4, 0, 2 * M_PI);
	cairo_set_source_rgb(cr, 0.08, 0.08, 0.09);
	cairo_set_line_width(cr, 1.5);
	cairo_stroke(cr);
	// Grip ring; the pointer itself is drawn by the knob control.
	cairo_arc(cr, c, c, c - 12, 0, 2 * M_PI);
	cairo_set_source_rgba(cr, 1, 1, 1, 0.12);
	cairo_set_line_width(cr, 1);
	cairo_stroke(cr);
	cairo_destroy(cr);
	const bool ok = cairo_surface_write_to_png(s, path.c_str()) == CAIRO_STATUS_SUCCESS;
	cairo_surface_destroy(s);
	return ok;
}

} // namespace

int main(int argc, char** argv)
{
	if (argc != 2)
	{
		std::fprintf(stderr, "usage: %s OUTPUT_DIR\n", argv[0]);
		return 2;
	}
	const std::string dir = argv[1];
	if (!drawBackground(dir + "/background.png") || !drawKnob(dir + "/knob.png"))
	{
		std::fprintf(stderr, "draw_images: cannot write the pictures to %s\n", dir.c_str());
		return 1;
	}
	return 0;
}
