// Radix-2 decimation in frequency followed by a bit-reversal reordering, with
// twiddles from rotation recurrences started from one sine and cosine.
//
// Pass p (half-length h = N / 2^(p+1)) uses the twiddles w_0 = 1,
// w_(k+1) = w_k (c_p + i s_p) in every block, and each butterfly is
// x + y, (x - y) w_k. The results are those of walking every pass from end to
// end and running the recurrence afresh in every block, to the last bit, but
// the work is ordered differently:
// - butterflies run on vectors of C neighbouring samples, C as wide as the
//   processor's vector instructions allow (1, 2 or 4);
// - the first pass runs its recurrence step by step; beside it, so that the
//   latencies overlap, the later passes run theirs, and keep every twiddle
//   (short passes) or the twiddle halfway through (long passes);
// - the long passes run two at a time, their recurrences (the outer one
//   twice, from the start and from halfway) a chunk of twiddles ahead, and
//   each chunk serves every block;
// - the short passes run two at a time, block by block while a block is in
//   cache;
// - the last two passes run on 4 x 4 tiles of samples during the bit
//   reversal, which exchanges whole tiles.
#include "osi/numerics/osifourier.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <utility>

namespace {

// 2 pi to twelve significant digits. Stored spectra were computed with this
// value; it stays as it is.
constexpr double kTwoPi = 6.28318530718;

// Samples and twiddle tables start on a cache line, so that no vector load
// straddles two.
constexpr size_t kCacheLine = 64;
// Passes whose half-length is at most kBlockHalf run block by block: each
// block of 2 kBlockHalf samples goes through all of them while it is in cache.
constexpr int kBlockHalf = 256;
// The long passes take their twiddles kChunk at a time.
constexpr int kChunk = 64;

// Every function that handles vectors is inlined into the entry point of one
// instruction set (at the end of the file), and so compiled for its vectors;
// no vector crosses a call.
#define OSI_FOURIER_INLINE __attribute__((always_inline)) inline
#define OSI_FOURIER_INLINE_LAMBDA __attribute__((always_inline))

// C complex numbers in one vector register (GCC and Clang vector extensions).
template <int C> struct Vector
{
	typedef double Raw __attribute__((vector_size(16 * C)));
	Raw raw;
};

template <int C> OSI_FOURIER_INLINE Vector<C> load(const OsiComplex* z)
{
	Vector<C> v;
	std::memcpy(&v.raw, z, sizeof v.raw);
	return v;
}

template <int C> OSI_FOURIER_INLINE void store(OsiComplex* z, const Vector<C>& v)
{
	std::memcpy(z, &v.raw, sizeof v.raw);
}

template <int C> OSI_FOURIER_INLINE Vector<C> broadcast(const OsiComplex& z)
{
	Vector<C> v;
	for (int j = 0; j < C; ++j)
	{
		v.raw[2 * j] = z.re;
		v.raw[2 * j + 1] = z.im;
	}
	return v;
}

template <int C> OSI_FOURIER_INLINE Vector<C> operator+(const Vector<C>& a, const Vector<C>& b)
{
	return {a.raw + b.raw};
}

template <int C> OSI_FOURIER_INLINE Vector<C> operator-(const Vector<C>& a, const Vector<C>& b)
{
	return {a.raw - b.raw};
}

template <int C> OSI_FOURIER_INLINE Vector<C> operator*(const Vector<C>& a, double s)
{
	return {a.raw * s};
}

// Every complex number's real part (Component 0) or imaginary part
// (Component 1) in both of its lanes.
template <size_t Component, int C, size_t... I>
OSI_FOURIER_INLINE Vector<C> spread(const Vector<C>& v, std::index_sequence<I...>)
{
	return {__builtin_shufflevector(v.raw, v.raw, ((I & ~size_t(1)) | Component)...)};
}

template <size_t Component, int C> OSI_FOURIER_INLINE Vector<C> spread(const Vector<C>& v)
{
	return spread<Component>(v, std::make_index_sequence<2 * C>());
}

// (-im, re) of every complex number.
template <int C, size_t... I>
OSI_FOURIER_INLINE Vector<C> perpendicular(const Vector<C>& v, std::index_sequence<I...>)
{
	const typename Vector<C>::Raw negated = -v.raw;
	return {__builtin_shufflevector(v.raw, negated, (I % 2 ? I - 1 : 2 * C + I + 1)...)};
}

template <int C> OSI_FOURIER_INLINE Vector<C> perpendicular(const Vector<C>& v)
{
	return perpendicular(v, std::make_index_sequence<2 * C>());
}

// Twiddles w = (wr, wi) kept with their perpendiculars (-wi, wr), so that
// t w is spread(tr) w + spread(ti) perp. The real part comes out as
// tr wr + ti (-wi), which is tr wr - ti wi to the last bit (negation is
// exact and a - b is a + (-b)), even for infinities and NaNs in t; the
// imaginary part is tr wi + ti wr, as OsiComplex's operator* forms them.
template <int C> struct Twiddles
{
	Vector<C> w;
	Vector<C> perp;
};

template <int C> OSI_FOURIER_INLINE Twiddles<C> twiddles(const Vector<C>& w)
{
	return {w, perpendicular(w)};
}

template <int C> OSI_FOURIER_INLINE Vector<C> rotate(const Vector<C>& t, const Twiddles<C>& w)
{
	return {spread<0>(t).raw * w.w.raw + spread<1>(t).raw * w.perp.raw};
}

// lo, hi <- lo + hi, (lo - hi) w.
template <int C>
OSI_FOURIER_INLINE void butterfly(OsiComplex* lo, OsiComplex* hi, const Twiddles<C>& w)
{
	const Vector<C> x = load<C>(lo);
	const Vector<C> y = load<C>(hi);
	store(lo, x + y);
	store(hi, rotate(x - y, w));
}

// Two passes at once, half-lengths 2q and q: the samples i, i + q, i + 2q,
// i + 3q go through both passes' butterflies while they are in registers.
template <int C>
OSI_FOURIER_INLINE void butterflies(OsiComplex* a, int q, const Twiddles<C>& outerLow,
                                    const Twiddles<C>& outerHigh, const Twiddles<C>& inner)
{
	const Vector<C> x0 = load<C>(a);
	const Vector<C> x1 = load<C>(a + q);
	const Vector<C> x2 = load<C>(a + 2 * q);
	const Vector<C> x3 = load<C>(a + 3 * q);
	const Vector<C> y0 = x0 + x2;
	const Vector<C> y2 = rotate(x0 - x2, outerLow);
	const Vector<C> y1 = x1 + x3;
	const Vector<C> y3 = rotate(x1 - x3, outerHigh);
	store(a, y0 + y1);
	store(a + q, rotate(y0 - y1, inner));
	store(a + 2 * q, y2 + y3);
	store(a + 3 * q, rotate(y2 - y3, inner));
}

// The rotation c + i s of every pass, the angle doubled from pass to pass.
struct Rotations
{
	double c[OsiFourier::kOrderLimit];
	double s[OsiFourier::kOrderLimit];

	Rotations(double theta, int passes)
	{
		double cosine = std::cos(theta);
		double sine = std::sin(theta);
		for (int p = 0; p < passes; ++p)
		{
			c[p] = cosine;
			s[p] = sine;
			const double doubled = 2 * cosine * sine;
			cosine = cosine * cosine - sine * sine;
			sine = doubled;
		}
	}
};

// L doubles in one vector register.
template <int L> struct LaneVector
{
	typedef double Raw __attribute__((vector_size(8 * L)));
};

// L twiddle recurrences w <- w (c + i s) side by side, so that their
// latencies overlap; lane by lane, the operations of OsiComplex's operator*.
template <int L> struct Recurrences
{
	typedef typename LaneVector<L>::Raw Lanes;
	Lanes c = {};
	Lanes s = {};
	Lanes re = {};
	Lanes im = {};

	// Lane l runs the recurrence of `pass` from w.
	OSI_FOURIER_INLINE void start(int l, const Rotations& rotations, int pass,
	                              const OsiComplex& w = {1.0, 0.0})
	{
		c[l] = rotations.c[pass];
		s[l] = rotations.s[pass];
		re[l] = w.re;
		im[l] = w.im;
	}

	OSI_FOURIER_INLINE OsiComplex at(int l) const { return {re[l], im[l]}; }

	OSI_FOURIER_INLINE void step()
	{
		const Lanes r = re * c - im * s;
		im = re * s + im * c;
		re = r;
	}

	// C steps; the twiddles of lane l into t[l].
	template <int C> OSI_FOURIER_INLINE void next(Twiddles<C> (&t)[L])
	{
		alignas(kCacheLine) OsiComplex w[L][C];
		for (int j = 0; j < C; ++j)
		{
			for (int l = 0; l < L; ++l)
				w[l][j] = at(l);
			step();
		}
		for (int l = 0; l < L; ++l)
			t[l] = twiddles(load<C>(w[l]));
	}
};

// Twiddles with their perpendiculars, the k-th of the pass with half-length h
// at h + k. The recurrences write the twiddles; the perpendiculars follow, a
// vector at a time.
struct alignas(kCacheLine) ShortTwiddles
{
	OsiComplex w[2 * kBlockHalf];
	OsiComplex perp[2 * kBlockHalf];

	template <int C> OSI_FOURIER_INLINE Twiddles<C> at(int i) const
	{
		return {load<C>(w + i), load<C>(perp + i)};
	}

	// perp[i] = (-w[i].im, w[i].re) for 0 < i < size.
	template <int C> OSI_FOURIER_INLINE void completePerpendiculars(int size)
	{
		int i = 1;
		for (; i < std::min(C, size); ++i)
			perp[i] = {-w[i].im, w[i].re};
		for (; i < size; i += C)
			store(perp + i, perpendicular(load<C>(w + i)));
	}
};

// Which passes are long: those after the first whose half-length exceeds
// the block's.
struct Plan
{
	int n;
	int order;
	// Half-length of the first pass that runs block by block.
	int blockHalf;
	// Passes from 1 to this one, excluded, are long.
	int firstShortPass;

	explicit Plan(int order)
	: n(1 << order),
	  order(order),
	  blockHalf(std::min(kBlockHalf, n / 4)),
	  firstShortPass(1)
	{
		while (firstShortPass < order && half(firstShortPass) > blockHalf)
			++firstShortPass;
	}

	int half(int pass) const { return n >> (pass + 1); }
};

// The first pass: its recurrence runs step by step, and every C steps give
// a vector of butterflies. Beside it runs the recurrence of a later pass,
// one step of theirs per step of its own.
template <int C> class FirstPass
{
public:
	OSI_FOURIER_INLINE FirstPass(OsiComplex* a, const Plan& plan, const Rotations& rotations)
	: a(a),
	  half(plan.half(0))
	{
		w.start(0, rotations, 0);
	}

	// Steps of the first pass (a multiple of C), each with a step of the
	// later pass's recurrence, whose k-th twiddle goes to
	// record[(k + round) >> shift].
	OSI_FOURIER_INLINE void run(const Rotations& rotations, int pass, int steps, OsiComplex* record,
	                            int round, int shift)
	{
		w.start(1, rotations, pass);
		for (int j0 = 0; j0 < steps; j0 += C)
		{
			Vector<C> own;
			for (int j = 0; j < C; ++j)
			{
				own.raw[2 * j] = w.re[0];
				own.raw[2 * j + 1] = w.im[0];
				record[(j0 + j + round) >> shift] = w.at(1);
				w.step();
			}
			butterfly(a + k, a + k + half, twiddles(own));
			k += C;
		}
	}

private:
	OsiComplex* a;
	int half;
	Recurrences<2> w;
	int k = 0;
};

// The first pass, with the twiddles of the short passes and the halfway
// twiddles of the long ones from the recurrences run beside it. A long pass
// of half-length h records its k-th twiddle into slot
// ceil(k / (h / 2)) of three, so that the middle slot ends with the
// (h / 2)-th; the first pass's last C steps record into a sink.
template <int C>
OSI_FOURIER_INLINE void firstPass(OsiComplex* a, const Plan& plan, const Rotations& rotations,
                                  ShortTwiddles& table,
                                  OsiComplex (&halfway)[OsiFourier::kOrderLimit])
{
	FirstPass<C> first(a, plan, rotations);
	int pass = 1;
	for (; pass < plan.order && plan.half(pass) >= C; ++pass)
	{
		const int h = plan.half(pass);
		if (pass < plan.firstShortPass)
		{
			OsiComplex slots[3];
			first.run(rotations, pass, h, slots, h / 2 - 1, __builtin_ctz(h / 2));
			halfway[pass] = slots[1];
		}
		else
		{
			first.run(rotations, pass, h, table.w + h, 0, 0);
		}
	}
	OsiComplex sink;
	if (plan.order > 0)
		first.run(rotations, 0, C, &sink, 0, 31);
	for (; pass < plan.order; ++pass)
	{
		const int h = plan.half(pass);
		Recurrences<2> w;
		w.start(0, rotations, pass);
		for (int k = 0; k < h; ++k)
		{
			table.w[h + k] = w.at(0);
			w.step();
		}
	}
}

// Passes over the whole block with the twiddles of the recurrences w, which
// run a chunk ahead; each chunk serves every block. For each block (of
// blockSize samples) and each vector of C twiddles of each lane, from offset
// i on: butterflies(a + block + i, twiddles).
template <int C, int L, class Butterflies>
OSI_FOURIER_INLINE void longSweep(OsiComplex* a, int n, int blockSize, int count, Recurrences<L>& w,
                                  Butterflies butterflies)
{
	Twiddles<C> chunk[kChunk / C][L];
	for (int i0 = 0; i0 < count; i0 += kChunk)
	{
		for (auto& t : chunk)
			w.next(t);
		for (int block = i0; block < n; block += blockSize)
		{
			for (int i = 0; i < kChunk / C; ++i)
				butterflies(a + block + i * C, chunk[i]);
		}
	}
}

// The long passes, two at a time; an odd one out runs alone. The outer
// pass's recurrence runs twice, from the start and from halfway.
template <int C>
OSI_FOURIER_INLINE void longPasses(OsiComplex* a, const Plan& plan, const Rotations& rotations,
                                   const OsiComplex (&halfway)[OsiFourier::kOrderLimit])
{
	int pass = 1;
	for (; pass + 1 < plan.firstShortPass; pass += 2)
	{
		const int q = plan.half(pass + 1);
		Recurrences<4> w;
		w.start(0, rotations, pass);
		w.start(1, rotations, pass, halfway[pass]);
		w.start(2, rotations, pass + 1);
		longSweep<C>(a, plan.n, 4 * q, q, w,
		             [q](OsiComplex* at, const Twiddles<C>(&t)[4])
		                 OSI_FOURIER_INLINE_LAMBDA { butterflies(at, q, t[0], t[1], t[2]); });
	}
	if (pass < plan.firstShortPass)
	{
		const int h = plan.half(pass);
		Recurrences<2> w;
		w.start(0, rotations, pass);
		w.start(1, rotations, pass, halfway[pass]);
		longSweep<C>(a, plan.n, 2 * h, h / 2, w,
		             [h](OsiComplex* at, const Twiddles<C>(&t)[2]) OSI_FOURIER_INLINE_LAMBDA {
			             butterfly(at, at + h, t[0]);
			             butterfly(at + h / 2, at + h / 2 + h, t[1]);
		             });
	}
}

// The short passes with half-lengths from top down to bottom over one block
// of 2 top samples, two at a time.
template <int C>
OSI_FOURIER_INLINE void shortPasses(OsiComplex* block, int top, int bottom,
                                    const ShortTwiddles& table)
{
	const int size = 2 * top;
	int h = top;
	for (; h / 2 >= bottom && h / 2 >= C; h /= 4)
	{
		const int q = h / 2;
		for (int start = 0; start < size; start += 2 * h)
		{
			for (int i = 0; i < q; i += C)
				butterflies(block + start + i, q, table.at<C>(h + i), table.at<C>(h + q + i),
				            table.at<C>(q + i));
		}
	}
	for (; h >= bottom; h /= 2)
	{
		for (int start = 0; start < size; start += 2 * h)
		{
			for (int i = 0; i < h; i += C)
				butterfly(block + start + i, block + start + i + h, table.at<C>(h + i));
		}
	}
}

// i with its lowest `bits` bits in reverse order (bits <= 16).
unsigned reverseBits(unsigned i, int bits)
{
	if (bits == 0)
		return 0;
	i = ((i >> 1) & 0x55555555u) | ((i & 0x55555555u) << 1);
	i = ((i >> 2) & 0x33333333u) | ((i & 0x33333333u) << 2);
	i = ((i >> 4) & 0x0f0f0f0fu) | ((i & 0x0f0f0f0fu) << 4);
	i = ((i >> 8) & 0x00ff00ffu) | ((i & 0x00ff00ffu) << 8);
	i = (i >> 16) | (i << 16);
	return i >> (32 - bits);
}

// Four consecutive complex numbers: a row of a tile.
template <int C> struct Quad
{
	Vector<C> v[4 / C];
};

template <int C> OSI_FOURIER_INLINE Quad<C> loadQuad(const OsiComplex* z)
{
	Quad<C> q;
	for (int j = 0; j < 4 / C; ++j)
		q.v[j] = load<C>(z + j * C);
	return q;
}

template <int C> OSI_FOURIER_INLINE void storeQuad(OsiComplex* z, const Quad<C>& q)
{
	for (int j = 0; j < 4 / C; ++j)
		store(z + j * C, q.v[j]);
}

// The columns of the 4 x 4 tile whose rows are r: column c holds r[0][c],
// r[1][c], r[2][c], r[3][c].
template <int C> OSI_FOURIER_INLINE void transpose(const Quad<C> (&r)[4], Quad<C> (&column)[4])
{
	if constexpr (C == 1)
	{
		for (int i = 0; i < 4; ++i)
			for (int c = 0; c < 4; ++c)
				column[c].v[i] = r[i].v[c];
	}
	else if constexpr (C == 2)
	{
		for (int half = 0; half < 2; ++half)
		{
			for (int c = 0; c < 2; ++c)
			{
				const auto& x = r[2 * half].v[c].raw;
				const auto& y = r[2 * half + 1].v[c].raw;
				column[2 * c].v[half].raw = __builtin_shufflevector(x, y, 0, 1, 4, 5);
				column[2 * c + 1].v[half].raw = __builtin_shufflevector(x, y, 2, 3, 6, 7);
			}
		}
	}
	else
	{
		const auto& r0 = r[0].v[0].raw;
		const auto& r1 = r[1].v[0].raw;
		const auto& r2 = r[2].v[0].raw;
		const auto& r3 = r[3].v[0].raw;
		// t0 = r0[0], r0[2], r1[0], r1[2]; t1 = r0[1], r0[3], r1[1], r1[3]; ...
		const auto t0 = __builtin_shufflevector(r0, r1, 0, 1, 4, 5, 8, 9, 12, 13);
		const auto t1 = __builtin_shufflevector(r0, r1, 2, 3, 6, 7, 10, 11, 14, 15);
		const auto t2 = __builtin_shufflevector(r2, r3, 0, 1, 4, 5, 8, 9, 12, 13);
		const auto t3 = __builtin_shufflevector(r2, r3, 2, 3, 6, 7, 10, 11, 14, 15);
		column[0].v[0].raw = __builtin_shufflevector(t0, t2, 0, 1, 4, 5, 8, 9, 12, 13);
		column[2].v[0].raw = __builtin_shufflevector(t0, t2, 2, 3, 6, 7, 10, 11, 14, 15);
		column[1].v[0].raw = __builtin_shufflevector(t1, t3, 0, 1, 4, 5, 8, 9, 12, 13);
		column[3].v[0].raw = __builtin_shufflevector(t1, t3, 2, 3, 6, 7, 10, 11, 14, 15);
	}
}

// The last two passes and the bit reversal. Index (high, m, low), with high
// and low of two bits, belongs at (rev low, rev m, rev high): tile m, the
// samples (high, m, low) for all high and low, is exchanged with tile rev m,
// transposed. The last two passes combine samples of one row of a tile, that
// is of one column of the transposed tile. The inverse transform scales
// every sample by 1/N.
template <int C> class TileStage
{
public:
	OSI_FOURIER_INLINE TileStage(const ShortTwiddles& table, int order, bool scale)
	: order(order),
	  scale(scale),
	  factor(1.0 / (1 << order)),
	  w2First{broadcast<C>(table.w[2]), broadcast<C>(table.perp[2])},
	  w2Second{broadcast<C>(table.w[3]), broadcast<C>(table.perp[3])},
	  w1{broadcast<C>(table.w[1]), broadcast<C>(table.perp[1])}
	{}

	OSI_FOURIER_INLINE void run(OsiComplex* a) const
	{
		const int middleBits = order - 4;
		const int quarter = 1 << (order - 2);
		for (int m = 0; m < (1 << middleBits); ++m)
		{
			const int partner = static_cast<int>(reverseBits(static_cast<unsigned>(m), middleBits));
			if (partner < m)
				continue;
			Quad<C> tile[4];
			finish(a + 4 * m, quarter, tile);
			if (partner == m)
			{
				put(a + 4 * m, quarter, tile);
				continue;
			}
			Quad<C> other[4];
			finish(a + 4 * partner, quarter, other);
			put(a + 4 * partner, quarter, tile);
			put(a + 4 * m, quarter, other);
		}
	}

private:
	// The tile at `at` (rows `stride` apart) through the last two passes,
	// transposed, rows and columns in bit-reversed order.
	OSI_FOURIER_INLINE void finish(const OsiComplex* at, int stride, Quad<C> (&result)[4]) const
	{
		const Quad<C> rows[4] = {loadQuad<C>(at), loadQuad<C>(at + 2 * stride),
		                         loadQuad<C>(at + stride), loadQuad<C>(at + 3 * stride)};
		Quad<C> x[4];
		transpose(rows, x);
		for (int j = 0; j < 4 / C; ++j)
		{
			const Vector<C> s0 = x[0].v[j] + x[2].v[j];
			const Vector<C> d0 = rotate(x[0].v[j] - x[2].v[j], w2First);
			const Vector<C> s1 = x[1].v[j] + x[3].v[j];
			const Vector<C> d1 = rotate(x[1].v[j] - x[3].v[j], w2Second);
			result[0].v[j] = scaled(s0 + s1);
			result[1].v[j] = scaled(d0 + d1);
			result[2].v[j] = scaled(rotate(s0 - s1, w1));
			result[3].v[j] = scaled(rotate(d0 - d1, w1));
		}
	}

	OSI_FOURIER_INLINE Vector<C> scaled(const Vector<C>& v) const { return scale ? v * factor : v; }

	OSI_FOURIER_INLINE static void put(OsiComplex* at, int stride, const Quad<C> (&rows)[4])
	{
		for (int i = 0; i < 4; ++i)
			storeQuad(at + i * stride, rows[i]);
	}

	int order;
	bool scale;
	double factor;
	Twiddles<C> w2First;
	Twiddles<C> w2Second;
	Twiddles<C> w1;
};

// Bit reversal by exchanges, for blocks too small for tiles.
void reverseSmall(OsiComplex* a, int order, bool scale)
{
	const int n = 1 << order;
	for (int i = 0; i < n; ++i)
	{
		const int j = static_cast<int>(reverseBits(static_cast<unsigned>(i), order));
		if (j > i)
			std::swap(a[i], a[j]);
	}
	if (scale)
	{
		const double factor = 1.0 / n;
		for (int i = 0; i < n; ++i)
			a[i] = a[i] * factor;
	}
}

// The whole transform with vectors of C complex numbers, for blocks of 16
// samples or more; smaller ones take C = 1.
template <int C> OSI_FOURIER_INLINE void transform(OsiComplex* a, int order, bool forward)
{
	const Plan plan(order);
	const Rotations rotations((forward ? -kTwoPi : kTwoPi) / plan.n, order);
	const bool tiles = order >= 4;
	ShortTwiddles table;
	OsiComplex halfway[OsiFourier::kOrderLimit];
	firstPass<C>(a, plan, rotations, table, halfway);
	table.completePerpendiculars<C>(2 * plan.blockHalf);
	longPasses<C>(a, plan, rotations, halfway);
	const int bottom = tiles ? 4 : 1;
	if (plan.blockHalf >= bottom)
	{
		for (int block = 0; block < plan.n; block += 2 * plan.blockHalf)
			shortPasses<C>(a + block, plan.blockHalf, bottom, table);
	}
	if (tiles)
		TileStage<C>(table, order, !forward).run(a);
	else
		reverseSmall(a, order, !forward);
}

// One entry point per instruction set, each with the whole transform inlined
// and compiled for its own vectors.
__attribute__((target("avx512f"))) void transformAvx512(OsiComplex* a, int order, bool forward)
{
	transform<4>(a, order, forward);
}

__attribute__((target("avx2"))) void transformAvx2(OsiComplex* a, int order, bool forward)
{
	transform<2>(a, order, forward);
}

void transformSse2(OsiComplex* a, int order, bool forward)
{
	transform<1>(a, order, forward);
}

} // namespace

void OsiFourier::SampleDeleter::operator()(OsiComplex* p) const
{
	::operator delete[](p, std::align_val_t(kCacheLine));
}

OsiFourier::OsiFourier(int order)
{
	if (order > 0 && order < kOrderLimit)
		allocate(order);
}

OsiFourier::OsiFourier(const OsiFourier& other) : OsiFourier(other.sampleOrder)
{
	if (samples)
		std::copy_n(other.samples.get(), sampleCount, samples.get());
}

OsiFourier& OsiFourier::operator=(const OsiFourier& other)
{
	if (this != &other)
	{
		OsiFourier copy(other);
		std::swap(samples, copy.samples);
		std::swap(sampleCount, copy.sampleCount);
		std::swap(sampleOrder, copy.sampleOrder);
	}
	return *this;
}

void OsiFourier::allocate(int order)
{
	sampleCount = 1 << order;
	sampleOrder = order;
	samples.reset(new (std::align_val_t(kCacheLine)) OsiComplex[sampleCount]());
}

void OsiFourier::order(int order)
{
	if (order < 0 || order >= kOrderLimit)
		return;
	if (!samples || order != sampleOrder)
		allocate(order);
}

void OsiFourier::size(int n)
{
	if (n <= 0)
		return;
	int order = 0;
	while (order < kOrderLimit && (1 << order) < n)
		++order;
	this->order(order);
}

void OsiFourier::null()
{
	std::fill_n(samples.get(), sampleCount, OsiComplex{0.0, 0.0});
}

void OsiFourier::conjugate()
{
	for (int i = 0; i < sampleCount; ++i)
		samples[i].im = -samples[i].im;
}

OsiFourier::Instructions OsiFourier::widestInstructions()
{
	static const Instructions widest = [] {
		__builtin_cpu_init();
		if (__builtin_cpu_supports("avx512f"))
			return Instructions::avx512;
		if (__builtin_cpu_supports("avx2"))
			return Instructions::avx2;
		return Instructions::sse2;
	}();
	return widest;
}

void OsiFourier::fourierTransform(bool forward)
{
	fourierTransform(forward, widestInstructions());
}

void OsiFourier::fourierTransform(bool forward, Instructions instructions)
{
	if (!samples)
		return;
	// Blocks of fewer than 16 samples are too short for the wider vectors.
	const Instructions used =
	    sampleOrder < 4 ? Instructions::sse2 : std::min(instructions, widestInstructions());
	if (used == Instructions::avx512)
		transformAvx512(samples.get(), sampleOrder, forward);
	else if (used == Instructions::avx2)
		transformAvx2(samples.get(), sampleOrder, forward);
	else
		transformSse2(samples.get(), sampleOrder, forward);
}
