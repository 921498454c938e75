// Numbers printed with their units, linearly and in decibels.
#include "osi/text/osidecibelformat.h"
#include "osi/text/osilinearformat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

namespace {

const OsiCompositeUnitLabel volts(OsiUnitLabel("V"));
const OsiCompositeUnitLabel watts(OsiUnitLabel("W"));
const OsiCompositeUnitLabel amperes(OsiUnitLabel("A"));

TEST(ValueFormat, PrintsNumbersWithTheirUnits)
{
	OsiLinearFormat scaled(volts);
	scaled.multiplyBy(1000, amperes);
	OsiDecibelFormat scaledLevel(volts, 1, false, false);
	scaledLevel.multiplyBy(1000, amperes);
	const OsiDecibelFormat copiedLevel(scaledLevel);
	const struct
	{
		std::shared_ptr<OsiValueFormat> format;
		double value;
		const char* text;
	} cases[] = {
	    {std::make_shared<OsiLinearFormat>(volts), -2.2e-3, "-2.2 mV"},
	    {std::make_shared<OsiLinearFormat>(OsiCompositeUnitLabel()), 2e6, "2 M"},
	    {std::make_shared<OsiLinearFormat>(scaled), 2, "2 VA"},
	    {std::make_shared<OsiLinearFormat>(scaled), 3e3, "3 kVA"},
	    // Amplitudes take 20 log10, powers 10 log10, against the reference (the
	    // graph axes' test prints plain volts and levels).
	    {std::make_shared<OsiDecibelFormat>(watts, 1e-3, true, false), 1e-4, "-10 dB[re 1 mW]"},
	    {std::make_shared<OsiDecibelFormat>(scaledLevel), 2000, "6.02 dB[re 1 kVA]"},
	    {std::make_shared<OsiDecibelFormat>(copiedLevel), 1000, "0 dB[re 1 kVA]"},
	    // Without a positive value and reference there is no level.
	    {std::make_shared<OsiDecibelFormat>(volts, 1, false, false), 0, "<Can't display>"},
	    {std::make_shared<OsiDecibelFormat>(volts, 1, false, false), -1, "<Can't display>"},
	    {std::make_shared<OsiDecibelFormat>(volts, 0, false, true), 3, "<Can't display>"},
	};
	for (const auto& c : cases)
		EXPECT_EQ(std::string(c.format->format(c.value, 3)), c.text) << c.text;
}

} // namespace
