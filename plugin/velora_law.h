// The pan law: a tabulated cubic spline from angle (degrees) to the gain of
// one output channel, and the one-pole low-pass that darkens the far channel.
#pragma once

namespace Steinberg {
namespace Vst {

// Bilinear-transform one-pole low-pass filter.
class LowPassFilter
{
public:
	LowPassFilter(double sampleRate, double cutoff);
	virtual ~LowPassFilter() = default;

	double y(double input)
	{
		const double out = A * x1 + A * input - B * y1;
		x1 = input;
		y1 = out;
		return out;
	}
	void reset() { y1 = x1 = 0.0; }

private:
	double y1 = 0.0; // previous output
	double x1 = 0.0; // previous input
	double A;        // feed-forward coefficient 1/(1+K)
	double B;        // feedback coefficient (1-K)/(1+K)
};

class VeloraLaw
{
public:
	static constexpr int n = 37;
	static const double gain; // extra factor on the filtered far channel beyond +-30 degrees
	static const double x[n]; // knot angles
	static const double y[n]; // knot gains
	static const double b[n]; // first-order coefficients per segment
	static const double c[n]; // second-order coefficients
	static const double d[n]; // third-order coefficients

	explicit VeloraLaw(double sampleRate);
	virtual ~VeloraLaw() = default;

	// Evaluates the spline at count angles; in and out may be the same array.
	static void spline_eval(int count, const double* in, double* out);

	// The segment that spline_eval picks for a lone angle (count 1): the
	// cached first segment up to and including its right knot (and for NaN),
	// otherwise the segment found by bisection.
	static int segmentOf(double u)
	{
		// spline_eval starts each call with segment 0 cached, so a lone angle
		// up to and including x[1] (and NaN, which fails every comparison)
		// stays there; bisection also answers 0 below x[0]. Beyond x[1] the
		// knot index is computed directly and corrected by the one step that
		// rounding can put it off the bisection's answer.
		if (!(u > x[1]))
			return 0;
		const double t = (u - x[0]) * 0.2;
		int i = t < n - 1 ? static_cast<int>(t) : n - 1;
		if (x[i] > u)
			--i;
		else if (i < n - 1 && x[i + 1] <= u)
			++i;
		return i;
	}
	static double evalSegment(int i, double u)
	{
		const double dx = u - x[i];
		return ((d[i] * dx + c[i]) * dx + b[i]) * dx + y[i];
	}
	// The gains of both channels at count angles: left[k] at angle[k] and
	// right[k] at -angle[k], each bit for bit what evalSegment(segmentOf(v), v)
	// gives. Runs of angles that keep both segments, as in a glide, are
	// evaluated with the segments' coefficients held, in loops that the
	// compiler vectorises.
	static void channelGains(int count, const double* angle, double* left, double* right);

	LowPassFilter& filter() { return lowPass; }

private:
	LowPassFilter lowPass;
};

} // namespace Vst
} // namespace Steinberg
