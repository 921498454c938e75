// An axis on which equal steps of value take equal lengths.
#pragma once

#include "vgui/vguigraphaxis.h"

class VGuiLinearAxis : public VGuiGraphAxis
{
public:
	using VGuiGraphAxis::VGuiGraphAxis;

	int type() const override { return 0; }
	const char* name() const override { return "Linear Axis"; }
	bool isLogScale() const override { return false; }
	VGuiGraphAxis* copy() const override { return new VGuiLinearAxis(*this); }
	std::unique_ptr<OsiValueFormat> createValueFormat() const override;

protected:
	VGuiLinearAxis(const VGuiLinearAxis&) = default;

	VGuiGraphAxisTicks layoutTicks(double lengthPixels, int level) const override;
};
