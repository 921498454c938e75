// Both builds of the glide renderer (the baseline one and the fastest this
// machine runs) against the plain per-sample reference, bit for bit.
#include "glide_renderer.h"
#include "support/naive_pan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace velora_test {
namespace {

using Steinberg::Vst::GlideRenderer;
using Steinberg::Vst::VeloraLaw;

constexpr double kRate = 48000.0;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Glide
{
	double from;
	double to;
	int count;
	bool inPlace; // the left output is the input buffer
};

// Knot crossings at the usual block size and at others (division, tails),
// steps wider than a segment, both ends beyond the table, angles that waver
// about a knot, one exactly on +30 where multiplying by the reciprocal of 49
// would miss it, a NaN angle, and a host that renders in place.
const Glide kGlides[] = {
    {0.0, 60.0, 512, false},
    {90.0, -90.0, 64, false},
    {-90.0, 90.0, 7, false},
    {-30.0, -25.0, 1021, false},
    {-120.0, 120.0, 100, true},
    {29.0, 31.0, 3, false},
    {-85.0 - 1e-13, -85.0 + 1e-13, 256, false},
    {5.0 + 1e-14, 5.0 - 1e-14, 67, true},
    {45.0, -60.0, 49, false},
    {kNaN, 10.0, 33, false},
};

TEST(GlideRenderer, EveryBuildMatchesThePlainReference)
{
	std::mt19937 rng(5);
	std::uniform_real_distribution<float> sample(-1.0f, 1.0f);
	for (const GlideRenderer::Kernel kernel : {GlideRenderer::plain, GlideRenderer::fastest})
		for (const Glide& g : kGlides)
		{
			SCOPED_TRACE(testing::Message() << g.from << " to " << g.to << " in " << g.count);
			const auto n = static_cast<size_t>(g.count);
			std::vector<float> in(n), left(n), right(n), refLeft(n), refRight(n);
			for (float& s : in)
				s = sample(rng);
			// Both filters start from the same, non-zero history.
			VeloraLaw law(kRate), reference(kRate);
			law.filter().y(0.75);
			reference.filter().y(0.75);
			naivePan(reference, g.from, g.to, in.data(), refLeft.data(), refRight.data(), g.count);
			float* out = g.inPlace ? in.data() : left.data();
			kernel(law.filter(), g.from, g.to, in.data(), out, right.data(), g.count);
			EXPECT_EQ(0, std::memcmp(out, refLeft.data(), n * sizeof(float)));
			EXPECT_EQ(0, std::memcmp(right.data(), refRight.data(), n * sizeof(float)));
			EXPECT_EQ(law.filter().y(0.5), reference.filter().y(0.5));
		}
}

} // namespace
} // namespace velora_test
