// A 32-bit xorshift generator (shifts 13, 17, 5).
#pragma once

#include <cstdint>

class OsiXorshiftRNG
{
public:
	explicit OsiXorshiftRNG(uint32_t state = 0) : state(state) {}
	virtual ~OsiXorshiftRNG() = default;

	// Advances the state by one step and returns the new state. A zero state
	// stays zero.
	uint32_t next()
	{
		state ^= state << 13;
		state ^= state >> 17;
		state ^= state << 5;
		return state;
	}
	uint32_t current() const { return state; }
	void setState(uint32_t s) { state = s; }

private:
	uint32_t state;
};
