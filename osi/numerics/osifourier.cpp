// Radix-2 decimation in frequency followed by a bit-reversal reordering, with
// twiddles from a rotation recurrence started from one sine and cosine.
//
// Each pass applies the twiddle sequence w_0 = 1, w_(k+1) = w_k (c + i s) to
// every block of the pass, and each butterfly is a[i] + a[j], (a[i] - a[j]) w.
// The results are those of walking every pass from end to end and running
// the recurrence afresh in every block, to the last bit, but the work is
// ordered differently:
// - every pass produces its twiddles once, through the same recurrence;
// - the passes over long blocks take their twiddles a chunk at a time and
//   apply each chunk to all blocks; their recurrence runs beside the one
//   that fills the table of the short passes;
// - the short passes (half-length kBlockHalf and less) run block by block,
//   two passes per sweep, while a block is in cache;
// - complex numbers are handled as vectors of two doubles.
#include "osi/numerics/osifourier.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

// 2 pi to twelve significant digits. Stored spectra were computed with this
// value; it stays as it is.
constexpr double kTwoPi = 6.28318530718;

// Twiddles per chunk of a pass over the whole block.
constexpr int kTwiddleChunk = 128;
// Passes whose half-length is at most this run block by block: each block of
// 2 x kBlockHalf samples goes through all of them while it is in cache.
constexpr int kBlockOrder = 8;
constexpr int kBlockHalf = 1 << kBlockOrder;

// A complex number in one vector register (GCC and Clang vector extensions).
typedef double Pair __attribute__((vector_size(16)));

Pair load(const OsiComplex* z)
{
	Pair p;
	std::memcpy(&p, z, sizeof p);
	return p;
}

void store(OsiComplex* z, Pair p)
{
	std::memcpy(z, &p, sizeof p);
}

// A twiddle w = (wr, wi) kept with its perpendicular (-wi, wr), so that t w
// is dup(tr) w + dup(ti) perp in one addition. The real part comes out as
// tr wr + ti (-wi), which is tr wr - ti wi to the last bit (negation is
// exact and a - b is a + (-b)), even for infinities and NaNs in t; the
// imaginary part is tr wi + ti wr, as OsiComplex's operator* forms them.
struct Twiddle
{
	Pair w;
	Pair perp;
};

Twiddle twiddle(Pair w)
{
	return {w, Pair{-w[1], w[0]}};
}

Pair multiply(Pair t, const Twiddle& w)
{
	return __builtin_shufflevector(t, t, 0, 0) * w.w + __builtin_shufflevector(t, t, 1, 1) * w.perp;
}

// lo, hi <- lo + hi, (lo - hi) w.
void butterfly(OsiComplex* lo, OsiComplex* hi, const Twiddle& w)
{
	const Pair l = load(lo);
	const Pair h = load(hi);
	store(lo, l + h);
	store(hi, multiply(l - h, w));
}

// The twiddles of the block-by-block passes, half-lengths top, top/2, ...,
// 1, into table[h .. 2h-1] for half-length h, one recurrence step at a time.
// The steps are interleaved with the recurrence of a pass over the whole
// block, which is independent of them, so that the two latencies overlap.
class NarrowTwiddles
{
public:
	NarrowTwiddles(Twiddle* table, int top, const Twiddle* rotations)
	: table(table),
	  half(top),
	  rotations(rotations)
	{}

	void step()
	{
		if (half == 0)
			return;
		table[half + k] = twiddle(w);
		w = multiply(w, *rotations);
		if (++k == half)
		{
			half /= 2;
			k = 0;
			w = Pair{1.0, 0.0};
			++rotations;
		}
	}

	void finish()
	{
		while (half > 0)
			step();
	}

private:
	Twiddle* table;
	int half;
	const Twiddle* rotations;
	Pair w = {1.0, 0.0};
	int k = 0;
};

// A pass over the whole block, a chunk of twiddles at a time. The twiddles
// of a chunk come from the recurrence while the first block uses them, and
// the latency of the recurrence is shared with the block-by-block twiddles.
void widePass(OsiComplex* a, int n, int half, const Twiddle& rotation, NarrowTwiddles& narrowState)
{
	NarrowTwiddles narrow = narrowState; // a local copy stays in registers
	Twiddle w[kTwiddleChunk];
	Pair next = {1.0, 0.0};
	for (int k0 = 0; k0 < half; k0 += kTwiddleChunk)
	{
		for (int k = 0; k < kTwiddleChunk; ++k)
		{
			w[k] = twiddle(next);
			butterfly(a + k0 + k, a + k0 + k + half, w[k]);
			next = multiply(next, rotation);
			narrow.step();
		}
		for (int block = k0 + 2 * half; block < n; block += 2 * half)
		{
			for (int k = 0; k < kTwiddleChunk; ++k)
				butterfly(a + block + k, a + block + half + k, w[k]);
		}
	}
	narrowState = narrow;
}

// Two passes at once, half-lengths h and h/2, over a block of `size`
// samples: each quadruple i, i + h/2, i + h, i + 3h/2 goes through both
// passes' butterflies while it is in registers. Quarter is h/2 when fixed, 0
// otherwise.
template <int Quarter>
void passPair(OsiComplex* block, int size, int h, const Twiddle* outer, const Twiddle* inner)
{
	const int q = Quarter > 0 ? Quarter : h / 2;
	for (int start = 0; start < size; start += 4 * q)
	{
		OsiComplex* a = block + start;
		for (int i = 0; i < q; ++i)
		{
			const Pair x0 = load(a + i);
			const Pair x1 = load(a + i + q);
			const Pair x2 = load(a + i + 2 * q);
			const Pair x3 = load(a + i + 3 * q);
			const Pair y0 = x0 + x2;
			const Pair y2 = multiply(x0 - x2, outer[i]);
			const Pair y1 = x1 + x3;
			const Pair y3 = multiply(x1 - x3, outer[i + q]);
			const Twiddle& w = inner[i];
			store(a + i, y0 + y1);
			store(a + i + q, multiply(y0 - y1, w));
			store(a + i + 2 * q, y2 + y3);
			store(a + i + 3 * q, multiply(y2 - y3, w));
		}
	}
}

// The passes with half-lengths top, top/2, ..., 1 over one block of 2 top
// samples, two at a time; twiddles of half-length h at table[h .. 2h-1].
void narrowPasses(OsiComplex* block, int top, const Twiddle* table)
{
	const int size = 2 * top;
	int h = top;
	for (; h >= 2; h /= 4)
	{
		if (h == 2)
			passPair<1>(block, size, h, table + h, table + h / 2);
		else if (h == 4)
			passPair<2>(block, size, h, table + h, table + h / 2);
		else
			passPair<0>(block, size, h, table + h, table + h / 2);
	}
	if (h == 1)
	{
		for (int start = 0; start < size; start += 2)
			butterfly(block + start, block + start + 1, table[1]);
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

// Reorders into natural order; the inverse transform scales every sample by
// 1/n. Index i = (t, m, b), with t and b of h bits and m the middle bit of an
// odd order, belongs with (rev b, m, rev t): the pairs are enumerated by
// t < rev b, so each is exchanged once and no test of i against its partner
// is needed.
void bitReverse(OsiComplex* a, int order, bool scale)
{
	const int h = order / 2;
	const int high = order - h;
	const int middles = 1 << (order - 2 * h);
	int reversed[1 << (OsiFourier::kOrderLimit / 2)];
	for (int t = 0; t < (1 << h); ++t)
		reversed[t] = static_cast<int>(reverseBits(static_cast<unsigned>(t), h));
	for (int t = 0; t < (1 << h); ++t)
	{
		for (int r = t + 1; r < (1 << h); ++r)
		{
			for (int m = 0; m < middles; ++m)
				std::swap(a[(t << high) | (m << h) | reversed[r]],
				          a[(r << high) | (m << h) | reversed[t]]);
		}
	}
	if (scale)
	{
		const double factor = 1.0 / (1 << order);
		for (int i = 0; i < (1 << order); ++i)
			a[i] *= factor;
	}
}

// The next pass's rotation: the angle doubled.
void doubleAngle(double& c, double& s)
{
	const double doubled = 2 * c * s;
	c = c * c - s * s;
	s = doubled;
}

} // namespace

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
	samples = std::make_unique<OsiComplex[]>(sampleCount);
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

void OsiFourier::fourierTransform(bool forward)
{
	if (!samples)
		return;
	OsiComplex* a = samples.get();
	const int n = sampleCount;
	const double theta = (forward ? -kTwoPi : kTwoPi) / n;
	double s = std::sin(theta);
	double c = std::cos(theta);

	// The rotation of every pass, by angle doubling from the first.
	Twiddle rotations[kOrderLimit];
	int passes = 0;
	for (int half = n / 2; half >= 1; half /= 2)
	{
		rotations[passes++] = twiddle(Pair{c, s});
		doubleAngle(c, s);
	}
	const int wide = std::max(0, sampleOrder - 1 - kBlockOrder);
	const int top = std::min(n / 2, kBlockHalf);
	Twiddle table[2 * kBlockHalf];
	NarrowTwiddles narrow(table, top, rotations + wide);
	for (int p = 0; p < wide; ++p)
		widePass(a, n, n >> (p + 1), rotations[p], narrow);
	narrow.finish();
	if (top >= 1)
	{
		for (int block = 0; block < n; block += 2 * top)
			narrowPasses(a + block, top, table);
	}
	bitReverse(a, sampleOrder, !forward);
}
