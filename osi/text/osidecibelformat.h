// A level in decibels relative to a reference value, naming the reference:
// twice a reference of 1 V reads "6.02 dB[re 1 V]" as an amplitude.
#pragma once

#include "osi/text/osivalueformat.h"

class OsiDecibelFormat : public OsiValueFormat
{
public:
	static constexpr const char* kCannotDisplay = "<Can't display>";

	// isPower: the values are powers (10 log10) rather than amplitudes
	// (20 log10). isDecibels: the values already are levels in decibels.
	OsiDecibelFormat(const OsiCompositeUnitLabel& units, double reference, bool isPower,
	                 bool isDecibels);

	// "<Can't display>" for a reference that is not positive, or for a value
	// that is not positive unless it already is a level.
	const string_ext<char>& format(double value, int precision) const override;
	// Also scales the reference by factor.
	void multiplyBy(double factor, const OsiCompositeUnitLabel& units) override;

	bool isPower;
	bool isDecibels;
	double factor;
	double reference;
};
