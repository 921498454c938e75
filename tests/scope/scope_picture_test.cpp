// The pictures the tools draw without a window (velora-scope --png and
// velora-render --plot), read back with cairo, and the tools' one-line
// errors, which leave no file behind.
#include "scope/tone_in_noise.h"
#include "support/temp_folder.h"
#include "support/tool_process.h"

#include <cairo.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>

namespace velora_test {
namespace {

struct Picture
{
	int width = 0;
	int height = 0;
	std::multiset<unsigned> colours; // 0xRRGGBB of every pixel
};

Picture readPng(const std::string& path)
{
	Picture p;
	cairo_surface_t* s = cairo_image_surface_create_from_png(path.c_str());
	if (cairo_surface_status(s) == CAIRO_STATUS_SUCCESS)
	{
		p.width = cairo_image_surface_get_width(s);
		p.height = cairo_image_surface_get_height(s);
		const unsigned char* data = cairo_image_surface_get_data(s);
		for (int y = 0; y < p.height; ++y)
			for (int x = 0; x < p.width; ++x)
				p.colours.insert(reinterpret_cast<const unsigned*>(
				                     data + y * cairo_image_surface_get_stride(s))[x] &
				                 0xFFFFFF);
	}
	cairo_surface_destroy(s);
	return p;
}

class ToolPictures : public ::testing::Test
{
protected:
	void SetUp() override
	{
		tone = scratch.path("tone.wav");
		ASSERT_TRUE(writeToneInNoise(tone));
	}

	// Runs a tool without an X server; its exit status. In args, split at
	// blanks, "@" stands for the scratch folder and TONE for the tone.
	int run(const char* tool, const char* args)
	{
		std::vector<std::string> words;
		std::istringstream in(args);
		for (std::string a; in >> a;)
			words.push_back(a[0] == '@' ? scratch.path() + a.substr(1) : a == "TONE" ? tone : a);
		ToolProcess process(tool, words, {false, "", 0});
		const int status = process.finish();
		out = process.rest();
		err = process.errors();
		return status;
	}

	TempFolder scratch;
	std::string tone;
	std::string out;
	std::string err;
};

// Trace colours: "Power spectrum", "Peak power spectrum", "Realtime power spectrum".
constexpr unsigned kTraces[] = {0x24F424, 0xF4F424, 0xCE63F5};

// The scope's picture holds both channels' traces; the render's plot, the
// input's and both output channels'.
TEST_F(ToolPictures, PicturesHaveTheirSizeAndATracePerChannel)
{
	const struct
	{
		const char* tool;
		const char* args;
		int width, height, traces;
	} cases[] = {
	    {VELORA_SCOPE, "--png @/p.png --size 640x400 TONE", 640, 400, 2},
	    {VELORA_RENDER, "--in TONE --out @/out.wav --pan 60 --plot @/p.png -q", 1000, 600, 3},
	};
	for (const auto& c : cases)
	{
		ASSERT_EQ(run(c.tool, c.args), 0) << err;
		const Picture p = readPng(scratch.path("p.png"));
		EXPECT_EQ(p.width, c.width);
		EXPECT_EQ(p.height, c.height);
		for (int i = 0; i < c.traces; ++i)
			EXPECT_GT(p.colours.count(kTraces[i]), 300u) << c.args << " " << i;
	}
}

TEST_F(ToolPictures, PeaksPrintTheToneOfEachChannel)
{
	ASSERT_EQ(run(VELORA_SCOPE, "--peaks 1 TONE"), 0) << err;
	double hz[2] = {0, 0};
	double db[2] = {0, 0};
	ASSERT_EQ(std::sscanf(out.c_str(), "%*[^\t]\t%lf Hz\t%lf dB\n%*[^\t]\t%lf Hz\t%lf dB", &hz[0],
	                      &db[0], &hz[1], &db[1]),
	          4)
	    << out;
	for (double f : hz)
		EXPECT_NEAR(f, 1000.0, 0.5);
	// Half scale, and a tenth of that: 20 dB apart.
	EXPECT_NEAR(db[0] - db[1], 20.0, 0.1);
}

struct ErrorCase
{
	const char* name;
	const char* tool;
	const char* args;
	int status;
	const char* says;
};

// Nothing is written, not even the audio that a render would have made.
class ToolErrors : public ToolPictures, public ::testing::WithParamInterface<ErrorCase>
{};

TEST_P(ToolErrors, OneLineNoOutputAndNoFile)
{
	const ErrorCase& c = GetParam();
	EXPECT_EQ(run(c.tool, c.args), c.status);
	EXPECT_EQ(out, "");
	EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
	EXPECT_NE(err.find(c.says), std::string::npos) << err;
	const std::string tool = c.tool;
	EXPECT_EQ(err.rfind(tool.substr(tool.rfind('/') + 1) + ": ", 0), 0u);
	// The tone alone.
	EXPECT_EQ(std::distance(std::filesystem::directory_iterator(scratch.path()), {}), 1);
}

INSTANTIATE_TEST_SUITE_P(
    , ToolErrors,
    ::testing::Values(
        ErrorCase{"MissingFile", VELORA_SCOPE, "@/none.wav", 1, "none.wav"},
        ErrorCase{"PictureInAMissingFolder", VELORA_SCOPE, "--png @/missing/out.png TONE", 1,
                  "missing/out.png"},
        ErrorCase{"FftNotAPowerOfTwo", VELORA_SCOPE, "--fft 1000 TONE", 2, "--fft"},
        ErrorCase{"SizeTooSmall", VELORA_SCOPE, "--size 10x10 TONE", 2, "--size"},
        ErrorCase{"PngAndPeaks", VELORA_SCOPE, "--peaks 2 --png @/a.png TONE", 2, "--png"},
        ErrorCase{"NoFile", VELORA_SCOPE, "", 2, "no input file"},
        ErrorCase{"PlotInAMissingFolder", VELORA_RENDER,
                  "--in TONE --out @/out.wav --plot @/missing/out.png -q", 1, "missing/out.png"}),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace velora_test
