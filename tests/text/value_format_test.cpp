// Numbers printed with their units, linearly and in decibels.
#include "osi/text/osidecibelformat.h"
#include "osi/text/osilinearformat.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

const OsiCompositeUnitLabel volts(OsiUnitLabel("V"));
const OsiCompositeUnitLabel hertz(OsiUnitLabel("Hz"));

TEST(LinearFormat, PrintsTheSuffixLetterThenTheUnit)
{
	const OsiLinearFormat format(hertz);
	EXPECT_EQ(format.format(1500, 3), "1.5 kHz");
	EXPECT_EQ(format.format(12.5, 3), "12.5 Hz");
	EXPECT_EQ(format.format(0, 3), "0 Hz");
	EXPECT_EQ(format.format(-2.2e-3, 2), "-2.2 mHz");
	EXPECT_EQ(OsiLinearFormat(OsiCompositeUnitLabel()).format(2e6, 3), "2 M");
}

TEST(LinearFormat, FollowsItsUnitsThroughMultiplyBy)
{
	OsiLinearFormat format(volts);
	format.multiplyBy(1000, OsiCompositeUnitLabel(OsiUnitLabel("A")));
	EXPECT_EQ(format.format(2, 3), "2 VA");
	// Through the base, as a graph axis holds it.
	std::unique_ptr<OsiValueFormat> copy = std::make_unique<OsiLinearFormat>(format);
	EXPECT_EQ(copy->format(3e3, 3), "3 kVA");
}

TEST(DecibelFormat, PrintsLevelsRelativeToItsReference)
{
	const OsiDecibelFormat amplitude(volts, 1, false, false);
	EXPECT_EQ(amplitude.factor, 20);
	EXPECT_EQ(amplitude.format(2, 3), "6.02 dB[re 1 V]");
	EXPECT_EQ(amplitude.format(10, 3), "20 dB[re 1 V]");

	const OsiDecibelFormat power(OsiCompositeUnitLabel(OsiUnitLabel("W")), 1e-3, true, false);
	EXPECT_EQ(power.factor, 10);
	EXPECT_EQ(power.format(1e-2, 3), "10 dB[re 1 mW]");
	EXPECT_EQ(power.format(1e-4, 3), "-10 dB[re 1 mW]");

	// Values that already are levels print as they are.
	const OsiDecibelFormat levels(volts, 1, false, true);
	EXPECT_EQ(levels.format(-12.5, 3), "-12.5 dB[re 1 V]");
	EXPECT_EQ(levels.format(0, 3), "0 dB[re 1 V]");
}

TEST(DecibelFormat, CannotDisplayWithoutAPositiveValueAndReference)
{
	const OsiDecibelFormat amplitude(volts, 1, false, false);
	EXPECT_EQ(amplitude.format(0, 3), "<Can't display>");
	EXPECT_EQ(amplitude.format(-1, 3), "<Can't display>");
	EXPECT_EQ(OsiDecibelFormat(volts, 0, false, true).format(3, 3), "<Can't display>");
	EXPECT_EQ(OsiDecibelFormat(volts, -1, true, false).format(3, 3), "<Can't display>");
}

TEST(DecibelFormat, MultiplyByMovesTheReferenceAndTheUnit)
{
	OsiDecibelFormat format(volts, 1, false, false);
	format.multiplyBy(1000, OsiCompositeUnitLabel(OsiUnitLabel("A")));
	EXPECT_EQ(format.reference, 1000);
	EXPECT_EQ(format.format(2000, 3), "6.02 dB[re 1 kVA]");
	const OsiDecibelFormat copy(format);
	EXPECT_EQ(copy.reference, 1000);
	EXPECT_EQ(copy.format(1000, 3), "0 dB[re 1 kVA]");
}

} // namespace
