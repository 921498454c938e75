#include "test_signal.h"

#include <algorithm>
#include <cmath>

namespace velora_render {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kCycleSeconds = 1.0; // one tone pulse and one noise burst
constexpr double kToneStart = 0.0, kToneLength = 0.35;
constexpr double kNoiseStart = 0.5, kNoiseLength = 0.35;
constexpr double kFadeSeconds = 0.01;
constexpr double kToneHz = 440.0;
constexpr double kLevel = 0.5; // about -6 dBFS at the peaks

// A 10 ms raised-cosine fade at both ends of a burst, 0 outside it.
double envelope(double t, double start, double length)
{
	const double u = t - start;
	if (u < 0.0 || u >= length)
		return 0.0;
	const double edge = std::min(u, length - u);
	if (edge >= kFadeSeconds)
		return 1.0;
	return 0.5 - 0.5 * std::cos(kPi * edge / kFadeSeconds);
}

// One-pole coefficient for a corner frequency (exponential smoothing).
double onePole(double hz)
{
	return 1.0 - std::exp(-2.0 * kPi * hz / TestSignal::kSampleRate);
}

} // namespace

TestSignal::TestSignal() : length(static_cast<std::int64_t>(kSampleRate * kSeconds)) {}

std::string TestSignal::description() const
{
	return "built-in test signal (pulsed tone and band-limited noise)";
}

int TestSignal::read(float* mono, int count)
{
	const int n = static_cast<int>(std::min<std::int64_t>(count, length - position));
	for (int i = 0; i < n; ++i)
		mono[i] = static_cast<float>(next());
	return n;
}

double TestSignal::noise()
{
	random ^= random << 13;
	random ^= random >> 17;
	random ^= random << 5;
	const double white = random / 4294967295.0 * 2.0 - 1.0;
	// Band-limit to roughly 300 Hz .. 4 kHz: a one-pole high-pass, then two
	// one-pole low-passes.
	const double hp = 0.96 * (highPassOut + white - highPassIn);
	highPassIn = white;
	highPassOut = hp;
	const double a = onePole(4000.0);
	lowPass1 += a * (hp - lowPass1);
	lowPass2 += a * (lowPass1 - lowPass2);
	return 2.0 * lowPass2;
}

double TestSignal::next()
{
	const double t = static_cast<double>(position++) / kSampleRate;
	const double inCycle = std::fmod(t, kCycleSeconds);
	const double phase = 2.0 * kPi * kToneHz * t;
	const double tone =
	    (std::sin(phase) + 0.5 * std::sin(2.0 * phase) + 0.25 * std::sin(3.0 * phase)) / 1.75;
	// The noise filters run all the time so that every burst starts settled.
	const double band = noise();
	return kLevel * (tone * envelope(inCycle, kToneStart, kToneLength) +
	                 band * envelope(inCycle, kNoiseStart, kNoiseLength));
}

} // namespace velora_render
