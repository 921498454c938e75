// A product of units over a product of others (kg m over s squared), as
// values are scaled and combined. Each name occurs at most once across the
// two lists, always with a positive power.
#pragma once

#include "osi/text/osiunitlabel.h"
#include "osi/text/osiunitlabellist.h"

class OsiCompositeUnitLabel
{
public:
	OsiCompositeUnitLabel() = default;
	explicit OsiCompositeUnitLabel(const OsiUnitLabel& unit);
	// numerator divided by denominator.
	OsiCompositeUnitLabel(const OsiUnitLabel& numerator, const OsiUnitLabel& denominator);
	OsiCompositeUnitLabel(const OsiCompositeUnitLabel& other);
	virtual ~OsiCompositeUnitLabel() = default;
	OsiCompositeUnitLabel& operator=(const OsiCompositeUnitLabel& other);
	OsiCompositeUnitLabel& operator=(const OsiUnitLabel& unit);

	// Each combines a copy of the given units into this label (a power of 0
	// changes nothing) and returns the label.
	OsiCompositeUnitLabel& multiply(const OsiUnitLabel& unit);
	OsiCompositeUnitLabel& divide(const OsiUnitLabel& unit);
	OsiCompositeUnitLabel& multiply(const OsiCompositeUnitLabel& other);
	OsiCompositeUnitLabel& divide(const OsiCompositeUnitLabel& other);

	// True when every unit of other is found here, by name and with an
	// equal power, on the same side. One-sided: units that only this label
	// has are not looked at, so a label equals any label with fewer of its
	// units.
	bool isEqual(const OsiCompositeUnitLabel& other) const;
	bool operator==(const OsiCompositeUnitLabel& other) const { return isEqual(other); }
	bool operator!=(const OsiCompositeUnitLabel& other) const { return !isEqual(other); }

	// Appends the numerator units, then "/" and the denominator units, with
	// no separators (kgm/s followed by the squared mark); "1" stands for an
	// empty numerator over units; an empty label appends nothing.
	void concatenateWith(string_ext<char>& text) const;
	void reset();

private:
	void combine(const OsiCompositeUnitLabel& other, bool dividing);

	OsiUnitLabelList numerators;
	OsiUnitLabelList denominators;
};
