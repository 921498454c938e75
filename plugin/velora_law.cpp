#include "velora_law.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace Steinberg {
namespace Vst {

const double VeloraLaw::gain = 1.125214;

// Knots every 5 degrees from -90 to +90. The coefficients are those of the
// interpolating cubic spline of Forsythe, Malcolm and Moler (third derivative
// at each end matching the cubic through the four outermost knots); row 36 is
// the extrapolation segment beyond +90.
const double VeloraLaw::x[VeloraLaw::n] = {
    -90.0, -85.0, -80.0, -75.0, -70.0, -65.0, -60.0, -55.0, -50.0, -45.0, -40.0, -35.0, -30.0,
    -25.0, -20.0, -15.0, -10.0, -5.0,  0.0,   5.0,   10.0,  15.0,  20.0,  25.0,  30.0,  35.0,
    40.0,  45.0,  50.0,  55.0,  60.0,  65.0,  70.0,  75.0,  80.0,  85.0,  90.0,
};

const double VeloraLaw::y[VeloraLaw::n] = {
    1.25527334,  1.25785167,  1.25837292,  1.25451374,  1.24246863,  1.23427551,  1.20989219,
    1.19022874,  1.16331426,  1.13156277,  1.09493786,  1.04994239,  1.0,         0.9452279,
    0.88022947,  0.81117791,  0.73730384,  0.65459443,  0.56811975,  0.47562012,  0.38096057,
    0.28612426,  0.189724,    0.09214558,  0.0,         -0.08790263, -0.1716465,  -0.24977303,
    -0.32150543, -0.38441918, -0.43982388, -0.49493144, -0.53047558, -0.56438969, -0.58510116,
    -0.59554456, -0.6000523,
};

const double VeloraLaw::b[VeloraLaw::n] = {
    0.0006174875,  0.0003363955,  -0.0001033227, -0.0019258607, -0.0017358089, -0.0032738435,
    -0.0047146797, -0.0042954963, -0.0060500944, -0.0067037112, -0.008160902,  -0.0096249081,
    -0.0103021818, -0.0119950566, -0.0135799073, -0.0141153087, -0.0157142412, -0.0169778145,
    -0.0178849542, -0.0188669551, -0.0189427308, -0.0190596405, -0.0195606487, -0.0190849673,
    -0.0179338826, -0.0172084337, -0.0162202831, -0.0150326713, -0.0135643874, -0.0114974718,
    -0.0114367979, -0.0090626896, -0.0067034604, -0.0057984191, -0.0028782117, -0.0013816548,
    -0.0005658575,
};

const double VeloraLaw::c[VeloraLaw::n] = {
    -4.875459e-06, -5.134292e-05, -3.660072e-05, -0.0003279069, 0.0003659172,  -0.0006735242,
    0.0003853569,  -0.0003015203, -4.939935e-05, -8.132402e-05, -0.0002101141, -8.268709e-05,
    -5.276765e-05, -0.0002858073, -3.116284e-05, -7.591743e-05, -0.0002438691, -8.845585e-06,
    -0.0001725823, -2.381784e-05, 8.662698e-06,  -3.204464e-05, -6.8157e-05,   0.0001632933,
    6.692369e-05,  7.816608e-05,  0.000119464,   0.0001180583,  0.0001755985,  0.0002377846,
    -0.0002256499, 0.0007004715,  -0.0002286257, 0.0004096339,  0.0001744075,  0.0001249038,
    3.825562e-05,
};

const double VeloraLaw::d[VeloraLaw::n] = {
    -3.097831e-06, 9.828137e-07,  -1.942041e-05, 4.625494e-05,  -6.929609e-05, 7.059207e-05,
    -4.579181e-05, 1.680806e-05,  -2.128311e-06, -8.586007e-06, 8.495136e-06,  1.99463e-06,
    -1.553598e-05, 1.69763e-05,   -2.98364e-06,  -1.119678e-05, 1.566823e-05,  -1.091578e-05,
    9.917633e-06,  2.165369e-06,  -2.713823e-06, -2.40749e-06,  1.543002e-05,  -6.424638e-06,
    7.494924e-07,  2.753198e-06,  -9.371505e-08, 3.836011e-06,  4.145744e-06,  -3.089563e-05,
    6.174142e-05,  -6.193981e-05, 4.255064e-05,  -1.568176e-05, -3.300246e-06, -5.776549e-06,
    -5.776549e-06,
};

namespace {
constexpr double kCutoffHz = 1000.0;
constexpr int kLastSegment = VeloraLaw::n - 1;

// Largest knot index whose angle is <= u (0 below the first knot).
int bisect(double u)
{
	int lo = 0;
	int hi = VeloraLaw::n;
	while (hi > lo + 1)
	{
		const int mid = (lo + hi) / 2;
		if (VeloraLaw::x[mid] > u)
			hi = mid;
		else
			lo = mid;
	}
	return lo;
}
} // namespace

LowPassFilter::LowPassFilter(double sampleRate, double cutoff)
{
	const double K = 1.0 / std::tan(M_PI * cutoff / sampleRate);
	A = 1.0 / (1.0 + K);
	B = A / (1.0 / (1.0 - K));
}

VeloraLaw::VeloraLaw(double sampleRate) : lowPass(sampleRate, kCutoffHz) {}

void VeloraLaw::spline_eval(int count, const double* in, double* out)
{
	if (count < 1)
		return;
	if (in != out)
		std::memmove(out, in, sizeof(double) * static_cast<size_t>(count));

	// The segment cache lives for this call only, across its elements.
	int i = 0;
	for (int k = 0; k < count; ++k)
	{
		const double u = out[k];
		if (u < x[i] || (i < kLastSegment && u > x[i + 1]))
			i = bisect(u);
		out[k] = evalSegment(i, u);
	}
}

void VeloraLaw::segmentRange(int i, double& lo, double& hi)
{
	constexpr double inf = std::numeric_limits<double>::infinity();
	lo = i == 0 ? -inf : (i == 1 ? std::nextafter(x[1], inf) : x[i]);
	hi = i == 0 ? x[1] : (i == kLastSegment ? inf : std::nextafter(x[i + 1], -inf));
}

} // namespace Vst
} // namespace Steinberg
