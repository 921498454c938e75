// An axis on which equal ratios of value take equal lengths: it shows
// positive values only.
#pragma once

#include "vgui/vguigraphaxis.h"

#include <cmath>

class VGuiLogAxis : public VGuiGraphAxis
{
public:
	explicit VGuiLogAxis(bool horizontal);

	int type() const override { return 1; }
	const char* name() const override { return "Log Axis"; }
	bool isLogScale() const override { return true; }
	VGuiGraphAxis* copy() const override { return new VGuiLogAxis(*this); }
	std::unique_ptr<OsiValueFormat> createValueFormat() const override;

	bool accepts(double value) const override { return value > 0.0; }
	double transform(double value) const override { return std::log(value); }
	double untransform(double t) const override { return std::exp(t); }

protected:
	VGuiLogAxis(const VGuiLogAxis&) = default;

	// Decades, with their 2 and 5 where there is room; ranges of less than
	// about a decade get linear steps instead.
	VGuiGraphAxisTicks layoutTicks(double lengthPixels, int level) const override;
};
