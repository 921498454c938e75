#include "glide_renderer.h"

#include "pan_output.h"

#include <algorithm>
#include <cstring>

namespace Steinberg {
namespace Vst {

namespace {
// Several samples per step: four in the AVX2 build, one register of doubles
// each, and two in the baseline build, whose SSE2 registers hold two (four
// there would spill the held coefficients). The filter's recursion is serial
// whatever the width: the angles, gains and outputs are what go wide, and
// they overlap with it in one loop.
template <class D, class F, class M> struct Wide
{
	static constexpr int lanes = sizeof(D) / sizeof(double);
	using Doubles = D;
	using Floats = F;
	using Mask = M;

	// No vector is passed by value to a call that is not inlined (how it is
	// passed differs between the two builds), so everything taking one is
	// inlined always.
	[[gnu::always_inline]] static Doubles load(const float* p)
	{
		Floats f;
		std::memcpy(&f, p, sizeof f);
		return __builtin_convertvector(f, Doubles);
	}
	[[gnu::always_inline]] static void store(float* p, Doubles v)
	{
		const Floats f = __builtin_convertvector(v, Floats);
		std::memcpy(p, &f, sizeof f);
	}
	[[gnu::always_inline]] static Doubles splat(double v)
	{
		Doubles spread;
		for (int k = 0; k < lanes; ++k)
			spread[k] = v;
		return spread;
	}
	[[gnu::always_inline]] static Doubles count()
	{
		Doubles lane;
		for (int k = 0; k < lanes; ++k)
			lane[k] = k;
		return lane;
	}
	[[gnu::always_inline]] static bool all(Mask m)
	{
		long long every = m[0];
		for (int k = 1; k < lanes; ++k)
			every &= m[k];
		return every != 0;
	}
};
typedef double Doubles2 __attribute__((vector_size(2 * sizeof(double))));
typedef float Floats2 __attribute__((vector_size(2 * sizeof(float))));
typedef long long Mask2 __attribute__((vector_size(2 * sizeof(long long))));
using Pairs = Wide<Doubles2, Floats2, Mask2>;
typedef double Doubles4 __attribute__((vector_size(4 * sizeof(double))));
typedef float Floats4 __attribute__((vector_size(4 * sizeof(float))));
typedef long long Mask4 __attribute__((vector_size(4 * sizeof(long long))));
using Quads = Wide<Doubles4, Floats4, Mask4>;

// The angle of sample i: dividing by a power of two only scales, exactly, so
// for such blocks (the usual ones) multiplying by the reciprocal gives the
// very same angles at a fraction of the cost of a division.
struct GlideLine
{
	GlideLine(double previous, double current, int count)
	: previous(previous),
	  current(current),
	  n(count),
	  reciprocal(1.0 / n),
	  exactReciprocal((count & (count - 1)) == 0)
	{}
	template <class T> [[gnu::always_inline]] T at(T i) const
	{
		const T sum = i * current + (n - i) * previous;
		return exactReciprocal ? sum * reciprocal : sum / n;
	}

	double previous;
	double current;
	double n;
	double reciprocal;
	bool exactReciprocal;
};

// The closed range of angles of each spline segment, worked out once.
struct SegmentRanges
{
	SegmentRanges()
	{
		for (int i = 0; i < VeloraLaw::n; ++i)
			VeloraLaw::segmentRange(i, lo[i], hi[i]);
	}
	double lo[VeloraLaw::n];
	double hi[VeloraLaw::n];
};
const SegmentRanges kRanges;

// The rare step whose angles span more than two segments, or waver back
// across a knot: each lane on its own. Out of line, to keep it out of the
// hot loop.
template <class W>
[[gnu::noinline]] void gainsOneByOne(const typename W::Doubles& u, typename W::Doubles& g)
{
	for (int k = 0; k < W::lanes; ++k)
		g[k] = VeloraLaw::gainAt(u[k]);
}

// One channel's spline segment, held while the angles stay in its range: a
// glide crosses a knot every few dozen samples at most. The segment's
// coefficients are held spread over the lanes, ready for the next step. A
// step that crosses a knot takes each lane from the segment before or the
// one after it, and holds the latter.
template <class W> class HeldSegment
{
	using Doubles = typename W::Doubles;
	using Mask = typename W::Mask;

public:
	explicit HeldSegment(double u) : HeldSegment(VeloraLaw::segmentOf(u)) {}

	[[gnu::always_inline]] Mask inside(Doubles u) const { return (u >= lo) & (u <= hi); }
	[[gnu::always_inline]] Doubles gains(Doubles u) const
	{
		return VeloraLaw::cubic(x, y, b, c, d, u);
	}
	[[gnu::always_inline]] Doubles follow(Doubles u)
	{
		const Mask before = inside(u);
		if (W::all(before))
			return gains(u);
		const HeldSegment after(VeloraLaw::segmentOf(u[W::lanes - 1]));
		const Mask crossed = after.inside(u);
		Doubles g;
		if (W::all(before | crossed))
			g = crossed ? after.gains(u) : gains(u);
		else
			gainsOneByOne<W>(u, g);
		*this = after;
		return g;
	}

	double lo;
	double hi;

private:
	explicit HeldSegment(int i)
	: lo(kRanges.lo[i]),
	  hi(kRanges.hi[i]),
	  x(W::splat(VeloraLaw::x[i])),
	  y(W::splat(VeloraLaw::y[i])),
	  b(W::splat(VeloraLaw::b[i])),
	  c(W::splat(VeloraLaw::c[i])),
	  d(W::splat(VeloraLaw::d[i]))
	{}

	Doubles x;
	Doubles y;
	Doubles b;
	Doubles c;
	Doubles d;
};

// Both channels' gains: the left at the angle, the right at its negative.
// Their two held segments share one range of angles, so nearly every step is
// one range test and two Horner evaluations.
template <class W> class GlideGains
{
	using Doubles = typename W::Doubles;

public:
	explicit GlideGains(double angle) : left(angle), right(-angle) { share(); }

	[[gnu::always_inline]] void at(Doubles angle, Doubles& gainL, Doubles& gainR)
	{
		const Doubles opposite = -angle;
		if (W::all((angle >= lo) & (angle <= hi)))
		{
			gainL = left.gains(angle);
			gainR = right.gains(opposite);
			return;
		}
		gainL = left.follow(angle);
		gainR = right.follow(opposite);
		share();
	}

private:
	// The right channel's range, negated, is where the angle keeps it.
	void share()
	{
		lo = std::max(left.lo, -right.hi);
		hi = std::min(left.hi, -right.lo);
	}

	HeldSegment<W> left;
	HeldSegment<W> right;
	double lo = 0.0;
	double hi = 0.0;
};

// The filter runs on a local copy, which stays in registers where the
// caller's, as far as the compiler knows, might share memory with the
// outputs. Each step reads its inputs before it writes, so the outputs may
// be the input buffer.
template <class W>
[[gnu::always_inline]] inline void renderGlide(LowPassFilter& filter, double previous,
                                               double current, const float* in, float* left,
                                               float* right, int count)
{
	LowPassFilter local = filter;
	const GlideLine line(previous, current, count);
	using Doubles = typename W::Doubles;
	GlideGains<W> gains(line.at(0.0));
	const int wide = count - count % W::lanes;
	Doubles index = W::count();
	for (int i = 0; i < wide; i += W::lanes, index += W::lanes)
	{
		const Doubles angle = line.at(index);
		const Doubles s = W::load(in + i);
		const Doubles f = local.ys(s);
		Doubles gL, gR;
		gains.at(angle, gL, gR);
		W::store(left + i, PanOutput::left(s, f, angle, gL));
		W::store(right + i, PanOutput::right(s, f, angle, gR));
	}
	for (int i = wide; i < count; ++i)
	{
		const double angle = line.at(static_cast<double>(i));
		const double s = in[i];
		const double f = local.y(s);
		left[i] = static_cast<float>(PanOutput::left(s, f, angle, VeloraLaw::gainAt(angle)));
		right[i] = static_cast<float>(PanOutput::right(s, f, angle, VeloraLaw::gainAt(-angle)));
	}
	filter = local;
}

void renderPlain(LowPassFilter& filter, double previous, double current, const float* in,
                 float* left, float* right, int count)
{
	renderGlide<Pairs>(filter, previous, current, in, left, right, count);
}

// AVX2 without FMA: a fused multiply-add rounds once where the baseline
// build rounds twice, and the two builds must agree bit for bit.
__attribute__((target("avx2"))) void renderAvx2(LowPassFilter& filter, double previous,
                                                double current, const float* in, float* left,
                                                float* right, int count)
{
	renderGlide<Quads>(filter, previous, current, in, left, right, count);
}

GlideRenderer::Kernel pickFastest()
{
	__builtin_cpu_init();
	return __builtin_cpu_supports("avx2") ? renderAvx2 : renderPlain;
}
} // namespace

const GlideRenderer::Kernel GlideRenderer::plain = renderPlain;
const GlideRenderer::Kernel GlideRenderer::fastest = pickFastest();

} // namespace Vst
} // namespace Steinberg
