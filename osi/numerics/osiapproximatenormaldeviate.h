// Approximately normal random numbers: the sum of three uniform deviates in
// [-1, 1), which has variance 1, scaled and shifted. Bounded to
// mean +- 3 x scale; cheap, with no transcendental functions.
#pragma once

#include "osi/numerics/osixorshiftrng.h"

class OsiApproximateNormalDeviate
{
public:
	OsiApproximateNormalDeviate(double variance, double mean, unsigned int seed);
	// Copy and assignment take scale and mean; the generators all restart from
	// one fixed state, whatever the source has drawn.
	OsiApproximateNormalDeviate(const OsiApproximateNormalDeviate& other);
	OsiApproximateNormalDeviate& operator=(const OsiApproximateNormalDeviate& other);
	virtual ~OsiApproximateNormalDeviate() = default;

	// Restarts the sequence belonging to `seed`.
	void seed(unsigned int seed);
	double deviate();

	double standardDeviation() const { return scale; }
	double average() const { return mean; }

private:
	OsiXorshiftRNG generators[3];
	double scale;
	double mean;
};
