// Units as labels: products and quotients of named units with rational
// powers, their printed forms and their (one-sided) equality.
#include "osi/text/osicompositeunitlabel.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

using Label = OsiCompositeUnitLabel;
using Unit = OsiUnitLabel;

std::string printed(const Label& label)
{
	string_ext<char> text;
	label.concatenateWith(text);
	return text;
}

const Unit m("m");
const Unit s("s");

TEST(CompositeUnitLabel, PrintsProductsAndQuotients)
{
	const Unit root("Hz", OsiFraction(1, 2));
	const Label speed(m, s);
	const struct
	{
		const char* expected;
		std::function<Label()> make;
	} cases[] = {
	    {"m^4", [] { return Label(Unit("m", 4)); }},
	    {"Hz^(1/2)", [&] { return Label(root); }},
	    {"m/s<C2B2>", [] { return Label(m).divide(s).divide(s); }},
	    {"", [] { return Label(s).divide(s); }},
	    {"1/s", [] { return Label().divide(s); }},
	    // A unit moves across when its power changes sign.
	    {"1/m<C2B2>", [] { return Label(m).divide(Unit("m", 3)); }},
	    {"m<C2B3>", [] { return Label(m).divide(Unit("m", 3)).multiply(Unit("m", 5)); }},
	    {"kgm/s<C2B2>", [] { return Label(Unit("kg")).multiply(m).divide(Unit("s", 2)); }},
	    {"Nm", [] { return Label(Unit("N"), Unit("m", -1)); }},
	    // Half plus half is 4/4, which the fraction's normalisation leaves.
	    {"Hz^(4/4)", [&] { return Label(root).multiply(root); }},
	    {"m", [] { return Label(m).multiply(Unit("s", 0)).divide(Unit("m", 0)); }},
	    {"m<C2B2>/s<C2B2>", [&] { return Label(speed).multiply(speed); }},
	    {"m/s", [&] { return Label(speed).multiply(speed).divide(speed); }},
	    {"",
	     [&] {
		     Label label(speed);
		     return label.divide(label);
	     }},
	};
	for (const auto& c : cases)
		EXPECT_EQ(printed(c.make()), c.expected);
}

TEST(CompositeUnitLabel, EqualityIsOneSided)
{
	// Every unit of the right-hand side must be found on the left.
	const Label force = Label(Unit("kg")).multiply(m).divide(Unit("s", 2));
	const Label fewer(m);
	EXPECT_TRUE(force == fewer);
	EXPECT_FALSE(fewer == force);
	EXPECT_TRUE(force == Label());
	EXPECT_FALSE(force == Label().divide(m));
	EXPECT_FALSE(force == Label().divide(s));
	EXPECT_TRUE(force == Label().divide(Unit("s", 2)));
	EXPECT_FALSE(force == Label(Unit("KG")));
	EXPECT_TRUE(Label(Unit("Hz", OsiFraction(1, 2))).multiply(Unit("Hz", OsiFraction(1, 2))) ==
	            Label(Unit("Hz")));
}

TEST(CompositeUnitLabel, CopiesAreDeepAndIndependent)
{
	Label original(m, s);
	Label copy(original);
	original.multiply(s);
	EXPECT_EQ(printed(copy), "m/s");
	Label assigned;
	assigned = copy;
	assigned = static_cast<const Label&>(assigned);
	copy.reset();
	EXPECT_EQ(printed(assigned), "m/s");
	EXPECT_EQ(printed(copy), "");
}

} // namespace
