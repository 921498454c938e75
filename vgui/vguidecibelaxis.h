// An axis of levels in decibels relative to a reference value. Normally its
// values are amplitudes or powers (positive), shown on a logarithmic scale
// and labelled in dB; in linear-decibel mode its values already are levels
// in dB, shown on a linear scale.
#pragma once

#include "vgui/vguigraphaxis.h"

class VGuiDecibelAxis : public VGuiGraphAxis
{
public:
	VGuiDecibelAxis(bool horizontal, bool linearDecibels);

	int type() const override { return linearDecibels ? 3 : 2; }
	const char* name() const override { return "dB Axis"; }
	bool isLogScale() const override { return !linearDecibels; }
	VGuiGraphAxis* copy() const override { return new VGuiDecibelAxis(*this); }
	std::unique_ptr<OsiValueFormat> createValueFormat() const override;

	bool accepts(double value) const override { return linearDecibels || value > 0.0; }
	double transform(double value) const override;
	double untransform(double t) const override;

	// The level in dB of a value, and the value of a level.
	double level(double value) const;
	double valueAt(double decibels) const;

	// The range the axis starts with, in dB.
	double lowerDecibels = -60.0;
	double upperDecibels = 0.0;
	// 10 / ln 10: natural logarithms to decibels of power.
	double scale = 4.3429448190325175;
	double logOffset = 0.0;
	bool linearDecibels;

protected:
	VGuiDecibelAxis(const VGuiDecibelAxis&) = default;

	// Whole-decibel steps of 1, 2 or 5 times a power of ten.
	VGuiGraphAxisTicks layoutTicks(double lengthPixels, int level) const override;
	double tickValue(double labelValue) const override { return valueAt(labelValue); }
	// "dB [re 1 V]".
	string_ext<char> unitsLabel(int exponent) const override;
};
