// The editor as a picture: the render_editor tool draws it offscreen at -90,
// 0 and +90 degrees; the pictures must differ where the knob and the value
// display are, and nowhere else. The 0-degree picture is kept in the build
// tree (editor.png).
#include <cairo.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>

namespace velora_test {
namespace {

using Picture = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

int run(const std::string& arguments)
{
	return std::system((std::string(RENDER_EDITOR) + " " + arguments).c_str());
}

Picture render(double degrees, const std::string& name)
{
	const std::string path = std::string(PICTURE_DIR) + "/" + name;
	EXPECT_EQ(run(std::string(std::getenv("VELORA_BUNDLE")) + "/Contents/Resources " +
	              std::to_string(degrees) + " " + path),
	          0);
	Picture picture(cairo_image_surface_create_from_png(path.c_str()), cairo_surface_destroy);
	cairo_surface_flush(picture.get());
	EXPECT_EQ(cairo_surface_status(picture.get()), CAIRO_STATUS_SUCCESS) << path;
	return picture;
}

uint32_t pixel(const Picture& picture, int x, int y)
{
	const auto* row = cairo_image_surface_get_data(picture.get()) +
	                  y * cairo_image_surface_get_stride(picture.get());
	return reinterpret_cast<const uint32_t*>(row)[x];
}

// The pixels that differ in the knob (64 x 64, centred on (49, 94)), in the
// display (110..160 x 82..106) and elsewhere.
std::array<int, 3> differences(const Picture& a, const Picture& b)
{
	std::array<int, 3> counts{};
	for (int y = 0; y < cairo_image_surface_get_height(a.get()); ++y)
		for (int x = 0; x < cairo_image_surface_get_width(a.get()); ++x)
		{
			const bool knob = x >= 17 && x < 81 && y >= 62 && y < 126;
			const bool display = x >= 110 && x < 160 && y >= 82 && y < 106;
			counts[knob ? 0 : display ? 1 : 2] += pixel(a, x, y) != pixel(b, x, y);
		}
	return counts;
}

TEST(EditorPicture, KnobAndDisplayMoveAndNothingElse)
{
	const Picture left = render(-90, "editor-left.png");
	const Picture centre = render(0, "editor.png");
	const Picture right = render(90, "editor-right.png");
	ASSERT_EQ(cairo_image_surface_get_width(centre.get()), 240);
	ASSERT_EQ(cairo_image_surface_get_height(centre.get()), 150);
	for (const Picture* other : {&left, &right})
	{
		const auto counts = differences(centre, *other);
		EXPECT_GT(counts[0], 50);
		EXPECT_GT(counts[1], 20);
		EXPECT_EQ(counts[2], 0);
	}
	EXPECT_GT(differences(left, right)[0], 50);
	EXPECT_NE(run(std::string(PICTURE_DIR) + " 91 " + PICTURE_DIR + "/never.png 2>/dev/null"), 0)
	    << "an angle out of range";
}

} // namespace
} // namespace velora_test
