// Units as labels: products and quotients of named units with rational
// powers, their printed forms and their (one-sided) equality.
#include "osi/text/osicompositeunitlabel.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string printed(const OsiCompositeUnitLabel& label)
{
	string_ext<char> text;
	label.concatenateWith(text);
	return text;
}

std::string printed(const OsiUnitLabel& unit)
{
	string_ext<char> text("x");
	unit.concatenateWith(text);
	return text;
}

const OsiUnitLabel m("m");
const OsiUnitLabel s("s");

// One over unit.
OsiCompositeUnitLabel per(const OsiUnitLabel& unit)
{
	OsiCompositeUnitLabel label;
	label.divide(unit);
	return label;
}

TEST(UnitLabel, PrintsItsPowerAfterItsName)
{
	EXPECT_EQ(printed(OsiUnitLabel("Hz")), "xHz");
	EXPECT_EQ(printed(OsiUnitLabel("m", 2)), "xm<C2B2>");
	EXPECT_EQ(printed(OsiUnitLabel("m", 3)), "xm<C2B3>");
	EXPECT_EQ(printed(OsiUnitLabel("m", 4)), "xm^4");
	EXPECT_EQ(printed(OsiUnitLabel("m", -1)), "xm^-1");
	EXPECT_EQ(printed(OsiUnitLabel("Hz", OsiFraction(1, 2))), "xHz^(1/2)");
	EXPECT_EQ(printed(OsiUnitLabel(nullptr)), "x");
}

TEST(CompositeUnitLabel, MultipliesAndDividesUnits)
{
	OsiCompositeUnitLabel area(m);
	EXPECT_EQ(printed(area.multiply(m)), "m<C2B2>");

	OsiCompositeUnitLabel acceleration(m);
	acceleration.divide(s).divide(s);
	EXPECT_EQ(printed(acceleration), "m/s<C2B2>");

	OsiCompositeUnitLabel none(s);
	EXPECT_EQ(printed(none.divide(s)), "");

	OsiCompositeUnitLabel rate;
	EXPECT_EQ(printed(rate.divide(s)), "1/s");

	// A unit moves across when its power changes sign.
	OsiCompositeUnitLabel flipped(m);
	flipped.divide(OsiUnitLabel("m", 3));
	EXPECT_EQ(printed(flipped), "1/m<C2B2>");
	flipped.multiply(OsiUnitLabel("m", 5));
	EXPECT_EQ(printed(flipped), "m<C2B3>");

	OsiCompositeUnitLabel force(OsiUnitLabel("kg"));
	force.multiply(m).divide(OsiUnitLabel("s", 2));
	EXPECT_EQ(printed(force), "kgm/s<C2B2>");
	EXPECT_EQ(printed(OsiCompositeUnitLabel(OsiUnitLabel("N"), OsiUnitLabel("m", -1))), "Nm");
}

TEST(CompositeUnitLabel, KeepsPowersAsTheFractionsLeaveThem)
{
	// Half plus half is 4/4, which the fraction's normalisation leaves.
	const OsiUnitLabel root("Hz", OsiFraction(1, 2));
	OsiCompositeUnitLabel label(root);
	label.multiply(root);
	EXPECT_EQ(printed(label), "Hz^(4/4)");
	EXPECT_EQ(label, OsiCompositeUnitLabel(OsiUnitLabel("Hz")));

	OsiCompositeUnitLabel unchanged(m);
	unchanged.multiply(OsiUnitLabel("s", 0)).divide(OsiUnitLabel("m", 0));
	EXPECT_EQ(printed(unchanged), "m");
}

TEST(CompositeUnitLabel, CombinesWithOtherComposites)
{
	const OsiCompositeUnitLabel speed(m, s);
	OsiCompositeUnitLabel label(speed);
	label.multiply(speed);
	EXPECT_EQ(printed(label), "m<C2B2>/s<C2B2>");
	label.divide(speed);
	EXPECT_EQ(printed(label), "m/s");
	label.divide(label);
	EXPECT_EQ(printed(label), "");
	label.multiply(speed).multiply(label);
	EXPECT_EQ(printed(label), "m<C2B2>/s<C2B2>");
}

TEST(CompositeUnitLabel, EqualityIsOneSided)
{
	OsiCompositeUnitLabel force(OsiUnitLabel("kg"));
	force.multiply(m).divide(OsiUnitLabel("s", 2));
	const OsiCompositeUnitLabel fewer(m);
	EXPECT_TRUE(force == fewer);
	EXPECT_FALSE(fewer == force);
	EXPECT_TRUE(fewer != force);
	EXPECT_TRUE(force == OsiCompositeUnitLabel());

	// The same units on the other side, or with another power, differ.
	EXPECT_FALSE(force == per(m));
	EXPECT_FALSE(force == per(s));
	EXPECT_TRUE(force == per(OsiUnitLabel("s", 2)));
	// Names are case-sensitive.
	EXPECT_FALSE(force == OsiCompositeUnitLabel(OsiUnitLabel("KG")));
}

TEST(CompositeUnitLabel, CopiesAreDeepAndIndependent)
{
	OsiCompositeUnitLabel original(m, s);
	OsiCompositeUnitLabel copy(original);
	original.multiply(s);
	EXPECT_EQ(printed(original), "m");
	EXPECT_EQ(printed(copy), "m/s");

	OsiCompositeUnitLabel assigned;
	assigned = copy;
	const OsiCompositeUnitLabel& itself = assigned;
	assigned = itself;
	copy.reset();
	EXPECT_EQ(printed(assigned), "m/s");
	EXPECT_EQ(printed(copy), "");
	assigned = OsiUnitLabel("V", 2);
	EXPECT_EQ(printed(assigned), "V<C2B2>");
}

} // namespace
