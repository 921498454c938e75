// The editor as a picture: the render_editor tool draws it offscreen at -90,
// 0 and +90 degrees; the pictures must differ where the knob and the value
// display are, and nowhere else. The 0-degree picture is kept in the build
// tree (editor.png).
#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace velora_test {
namespace {

struct Picture
{
	std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface{
	    nullptr, cairo_surface_destroy};
	int width() const { return cairo_image_surface_get_width(surface.get()); }
	int height() const { return cairo_image_surface_get_height(surface.get()); }
	uint32_t at(int x, int y) const
	{
		const auto* row = cairo_image_surface_get_data(surface.get()) +
		                  y * cairo_image_surface_get_stride(surface.get());
		return reinterpret_cast<const uint32_t*>(row)[x];
	}
};

std::string env(const char* name)
{
	const char* value = std::getenv(name);
	return value ? value : "";
}

Picture render(double degrees, const std::string& path)
{
	const std::string command = std::string(RENDER_EDITOR) + " " + env("VELORA_BUNDLE") +
	                            "/Contents/Resources " + std::to_string(degrees) + " " + path;
	EXPECT_EQ(std::system(command.c_str()), 0) << command;
	Picture p;
	p.surface.reset(cairo_image_surface_create_from_png(path.c_str()));
	cairo_surface_flush(p.surface.get());
	EXPECT_EQ(cairo_surface_status(p.surface.get()), CAIRO_STATUS_SUCCESS) << path;
	return p;
}

struct Box
{
	int left, top, right, bottom;
	bool contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
};

// The knob picture is 64 x 64, centred on (49, 94); the display spans 110..160 x 82..106.
const Box kKnob{49 - 32, 94 - 32, 49 + 32, 94 + 32};
const Box kDisplay{110, 82, 160, 106};

int differencesIn(const Picture& a, const Picture& b, const Box& box)
{
	int n = 0;
	for (int y = box.top; y < box.bottom; ++y)
		for (int x = box.left; x < box.right; ++x)
			n += a.at(x, y) != b.at(x, y);
	return n;
}

int differencesOutside(const Picture& a, const Picture& b)
{
	int n = 0;
	for (int y = 0; y < a.height(); ++y)
		for (int x = 0; x < a.width(); ++x)
			if (!kKnob.contains(x, y) && !kDisplay.contains(x, y))
				n += a.at(x, y) != b.at(x, y);
	return n;
}

TEST(EditorPicture, KnobAndDisplayMoveAndNothingElse)
{
	const std::string dir = PICTURE_DIR;
	const Picture left = render(-90, dir + "/editor-left.png");
	const Picture centre = render(0, dir + "/editor.png");
	const Picture right = render(90, dir + "/editor-right.png");
	ASSERT_EQ(centre.width(), 240);
	ASSERT_EQ(centre.height(), 150);
	for (const Picture* other : {&left, &right})
	{
		EXPECT_GT(differencesIn(centre, *other, kKnob), 50);
		EXPECT_GT(differencesIn(centre, *other, kDisplay), 20);
		EXPECT_EQ(differencesOutside(centre, *other), 0);
	}
	EXPECT_GT(differencesIn(left, right, kKnob), 50);
}

TEST(EditorPicture, ToolRefusesAnAngleOutOfRange)
{
	const std::string command = std::string(RENDER_EDITOR) + " /tmp 91 /tmp/never.png 2>/dev/null";
	EXPECT_NE(std::system(command.c_str()), 0);
}

} // namespace
} // namespace velora_test
