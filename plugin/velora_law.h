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
	// The outputs for a vector of consecutive inputs (a GCC vector of
	// doubles), bit for bit what y() gives one at a time: the feed-forward
	// sums A*x[n-1] + A*x[n] do not depend on the feedback, so the products
	// are formed wide; only the feedback, a multiply and a subtraction per
	// sample, stays serial. Inlined always, as vectors cross no call.
	template <class Vector> [[gnu::always_inline]] Vector ys(Vector input)
	{
		constexpr int lanes = sizeof(Vector) / sizeof(double);
		const Vector fed = A * input;
		double fedBefore = A * x1;
		Vector out;
		for (int k = 0; k < lanes; ++k)
		{
			y1 = fedBefore + fed[k] - B * y1;
			out[k] = y1;
			fedBefore = fed[k];
		}
		x1 = input[lanes - 1];
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
	// The closed range of angles v for which segmentOf(v) is segment i: the
	// first segment also takes everything up to and including its right
	// knot, the second starts just above that knot, the last has no end.
	static void segmentRange(int i, double& lo, double& hi);

	// Horner form of a segment's cubic about its left knot xi. T is double or
	// a GCC vector of doubles, evaluated lane by lane with the same roundings;
	// the coefficients are scalars or vectors of them.
	template <class T, class C>
	[[gnu::always_inline]] static T cubic(C xi, C yi, C bi, C ci, C di, T u)
	{
		const T dx = u - xi;
		return ((di * dx + ci) * dx + bi) * dx + yi;
	}
	template <class T> [[gnu::always_inline]] static T evalSegment(int i, T u)
	{
		return cubic(x[i], y[i], b[i], c[i], d[i], u);
	}
	// A lone angle's gain, bit for bit what spline_eval gives for it.
	static double gainAt(double u) { return evalSegment(segmentOf(u), u); }

	LowPassFilter& filter() { return lowPass; }

private:
	LowPassFilter lowPass;
};

} // namespace Vst
} // namespace Steinberg
