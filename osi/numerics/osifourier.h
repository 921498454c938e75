// A power-of-two block of complex samples, transformed in place.
#pragma once

#include "osi/numerics/osicomplex.h"

#include <memory>

class OsiFourier
{
public:
	static constexpr int kOrderLimit = 20; // orders 0 .. 19

	OsiFourier() = default;
	// 2^order zeroed samples for 0 < order < 20; otherwise empty.
	explicit OsiFourier(int order);
	// The same order and samples; empty when the source's order is 0.
	OsiFourier(const OsiFourier& other);
	OsiFourier& operator=(const OsiFourier& other);
	~OsiFourier() = default;

	// A new order discards the samples and zeroes 2^order new ones; the same
	// order keeps them. Orders outside 0 .. 19 are ignored.
	void order(int order);
	// The smallest order that holds n samples; n <= 0 is ignored.
	void size(int n);
	int order() const { return sampleOrder; }
	int size() const { return sampleCount; }
	OsiComplex* data() { return samples.get(); }
	const OsiComplex* data() const { return samples.get(); }

	// Vector instructions for the transform, narrowest first. Every choice
	// gives the same results to the last bit.
	enum class Instructions
	{
		sse2,
		avx2,
		avx512
	};
	// The widest that this processor offers.
	static Instructions widestInstructions();

	void null();
	void conjugate();
	// Forward: X_k = sum x_n e^(-2 pi i k n / N), unscaled. Inverse: the
	// conjugate kernel, divided by N. With the widest instructions offered.
	void fourierTransform(bool forward);
	// The same with the given instructions, or the widest offered if those
	// are wider.
	void fourierTransform(bool forward, Instructions instructions);

private:
	// Frees samples allocated on a cache-line boundary.
	struct SampleDeleter
	{
		void operator()(OsiComplex* p) const;
	};

	void allocate(int order);

	std::unique_ptr<OsiComplex[], SampleDeleter> samples;
	int sampleCount = 0;
	int sampleOrder = 0;
};
