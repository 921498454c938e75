#include "osi/numerics/osiapproximatenormaldeviate.h"

#include <cmath>

namespace {

const uint32_t kSeedMasks[3] = {0x7a03b3e2u, 0x51675f3du, 0x46e7b94eu};
constexpr uint32_t kCopyState = 0x92d68ca2u;

// A state as a uniform deviate in [-1, 1): s / 2^31 - 1.
double uniform(uint32_t s)
{
	return s * 4.656612873077393e-10 - 1;
}

} // namespace

OsiApproximateNormalDeviate::OsiApproximateNormalDeviate(double variance, double mean,
                                                         unsigned int seed)
: scale(std::sqrt(variance * 3.0 / 3.0)),
  mean(mean)
{
	this->seed(seed);
}

OsiApproximateNormalDeviate::OsiApproximateNormalDeviate(const OsiApproximateNormalDeviate& other)
: generators{OsiXorshiftRNG(kCopyState), OsiXorshiftRNG(kCopyState), OsiXorshiftRNG(kCopyState)},
  scale(other.scale),
  mean(other.mean)
{}

OsiApproximateNormalDeviate&
OsiApproximateNormalDeviate::operator=(const OsiApproximateNormalDeviate& other)
{
	for (OsiXorshiftRNG& g : generators)
		g.setState(kCopyState);
	scale = other.scale;
	mean = other.mean;
	return *this;
}

void OsiApproximateNormalDeviate::seed(unsigned int seed)
{
	for (int g = 0; g < 3; ++g)
	{
		generators[g].setState(seed ^ kSeedMasks[g]);
		generators[g].next();
	}
}

double OsiApproximateNormalDeviate::deviate()
{
	const double u1 = uniform(generators[0].next());
	const double u2 = uniform(generators[1].next());
	const double u3 = uniform(generators[2].next());
	return (u1 + u2 + u3) * scale + mean;
}
