#include "vgui/vguicolour.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kUndefined = VGuiHue::Undefined;

struct ModelCase
{
	VGuiColour rgb;
	VGuiHsv hsv;
	VGuiHls hls;
};

// Lightness truncates; the saturation divides by 511 - max - min in the light half.
const ModelCase kModelCases[] = {
    {{255, 0, 0}, {0, 255, 255}, {0, 127, 255}},
    {{128, 128, 128}, {kUndefined, 0, 128}, {kUndefined, 128, 0}},
    {{0, 0, 0}, {kUndefined, 0, 0}, {kUndefined, 0, 0}},
    {{0, 255, 0}, {120, 255, 255}, {120, 127, 255}},
    {{0, 0, 255}, {240, 255, 255}, {240, 127, 255}},
    {{200, 55, 100}, {341, 185, 200}, {341, 127, 145}}, // max + min = 255: D = 255
    {{201, 55, 100}, {342, 185, 201}, {342, 128, 146}}, // max + min = 256: D = 255
    {{255, 0, 1}, {360, 255, 255}, {360, 127, 255}},    // rounds up to a full turn
};

TEST(VGuiColour, ConvertsToBothModels)
{
	for (const ModelCase& c : kModelCases)
	{
		EXPECT_EQ(c.rgb.toHSV(), c.hsv) << int(c.rgb.red) << "," << int(c.rgb.green);
		EXPECT_EQ(c.rgb.toHLS(), c.hls) << int(c.rgb.red) << "," << int(c.rgb.green);
	}
}

// Stored hue, then as normalised by both models.
const int kHueCases[][2] = {{720, 0},  {-30, 330},  {361, 1},  {360, 0},
                            {-720, 0}, {4097, 137}, {359, 359}};

TEST(VGuiColour, ToRgbNormalisesTheStoredHue)
{
	for (const auto& c : kHueCases)
	{
		VGuiHsv hsv(c[0], 255, 255);
		VGuiHls hls(c[0], 127, 255);
		EXPECT_EQ(hsv.toRGB(7).alpha, 7);
		hls.toRGB(7);
		EXPECT_EQ(hsv.hue, c[1]) << c[0];
		EXPECT_EQ(hls.hue, c[1]) << c[0];
	}
	// Greys keep their hue, defined or not.
	VGuiHsv grey(kUndefined, 200, 90);
	EXPECT_EQ(grey.toRGB(255), VGuiColour(90, 90, 90));
	VGuiHls pale(720, 70, 0);
	EXPECT_EQ(pale.toRGB(255), VGuiColour(70, 70, 70));
	EXPECT_EQ(pale.hue, 720);
	EXPECT_TRUE(grey.forceDefinedHue(30));
	EXPECT_FALSE(grey.forceDefinedHue(60));
	EXPECT_EQ(grey.hue, 30);
}

int largestError(const VGuiColour& a, const VGuiColour& b)
{
	return std::max(
	    {std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
}

// Every 24-bit colour goes to each model and back, off by at most the integer
// models' largest errors: 2 through HSV, 3 through HLS.
TEST(VGuiColour, EveryColourSurvivesTheRoundTrips)
{
	int hsvError = 0;
	int hlsError = 0;
	for (int rgb = 0; rgb < 1 << 24; ++rgb)
	{
		const VGuiColour c(uint8_t(rgb >> 16), uint8_t(rgb >> 8), uint8_t(rgb), 255);
		hsvError = std::max(hsvError, largestError(c, c.toHSV().toRGB(255)));
		hlsError = std::max(hlsError, largestError(c, c.toHLS().toRGB(255)));
	}
	EXPECT_LE(hsvError, 2);
	EXPECT_LE(hlsError, 3);
}

} // namespace
