#include "osi/text/osicompositeunitlabel.h"

#include <memory>

namespace {

// Whether every unit of wanted is in have with the same power (as doubles).
bool holdsAll(const OsiUnitLabelList& have, const OsiUnitLabelList& wanted)
{
	OsiUnitLabelListIter iter(wanted);
	while (const OsiUnitLabel* unit = iter++)
	{
		const OsiUnitLabel* match = have.find(unit->name);
		if (!match || match->power.value() != unit->power.value())
			return false;
	}
	return true;
}

void copyAll(const OsiUnitLabelList& from, OsiUnitLabelList& to)
{
	OsiUnitLabelListIter iter(from);
	while (const OsiUnitLabel* unit = iter++)
		to.append(std::make_unique<OsiUnitLabel>(*unit));
}

void appendAll(const OsiUnitLabelList& units, string_ext<char>& text)
{
	OsiUnitLabelListIter iter(units);
	while (const OsiUnitLabel* unit = iter++)
		unit->concatenateWith(text);
}

} // namespace

OsiCompositeUnitLabel::OsiCompositeUnitLabel(const OsiUnitLabel& unit)
{
	multiply(unit);
}

OsiCompositeUnitLabel::OsiCompositeUnitLabel(const OsiUnitLabel& numerator,
                                             const OsiUnitLabel& denominator)
{
	multiply(numerator);
	divide(denominator);
}

OsiCompositeUnitLabel::OsiCompositeUnitLabel(const OsiCompositeUnitLabel& other)
{
	*this = other;
}

OsiCompositeUnitLabel& OsiCompositeUnitLabel::operator=(const OsiCompositeUnitLabel& other)
{
	if (this != &other)
	{
		reset();
		copyAll(other.numerators, numerators);
		copyAll(other.denominators, denominators);
	}
	return *this;
}

OsiCompositeUnitLabel& OsiCompositeUnitLabel::operator=(const OsiUnitLabel& unit)
{
	reset();
	return multiply(unit);
}

OsiCompositeUnitLabel& OsiCompositeUnitLabel::multiply(const OsiUnitLabel& unit)
{
	if (unit.power.numerator == 0)
		return *this;
	if (OsiUnitLabel* above = numerators.find(unit.name))
	{
		const OsiFraction power = above->power + unit.power;
		if (power > 0)
			above->power = power;
		else if (power == 0)
			numerators.destroy(above);
		else
		{
			std::unique_ptr<OsiUnitLabel> moved = numerators.take(above);
			moved->power = -power;
			denominators.append(std::move(moved));
		}
	}
	else if (OsiUnitLabel* below = denominators.find(unit.name))
	{
		const OsiFraction power = unit.power - below->power;
		if (power < 0)
			below->power = -power;
		else if (power == 0)
			denominators.destroy(below);
		else
		{
			std::unique_ptr<OsiUnitLabel> moved = denominators.take(below);
			moved->power = power;
			numerators.append(std::move(moved));
		}
	}
	else if (unit.power >= 0)
		numerators.append(std::make_unique<OsiUnitLabel>(unit));
	else
		denominators.append(std::make_unique<OsiUnitLabel>(unit.name.c_str(), -unit.power));
	return *this;
}

OsiCompositeUnitLabel& OsiCompositeUnitLabel::divide(const OsiUnitLabel& unit)
{
	return multiply(OsiUnitLabel(unit.name.c_str(), -unit.power));
}

OsiCompositeUnitLabel& OsiCompositeUnitLabel::multiply(const OsiCompositeUnitLabel& other)
{
	combine(other, false);
	return *this;
}

OsiCompositeUnitLabel& OsiCompositeUnitLabel::divide(const OsiCompositeUnitLabel& other)
{
	combine(other, true);
	return *this;
}

void OsiCompositeUnitLabel::combine(const OsiCompositeUnitLabel& other, bool dividing)
{
	if (&other == this)
	{
		// Combining with itself: walk a copy, as the lists change underway.
		const OsiCompositeUnitLabel copy(other);
		combine(copy, dividing);
		return;
	}
	OsiUnitLabelListIter above(other.numerators);
	while (const OsiUnitLabel* unit = above++)
	{
		if (dividing)
			divide(*unit);
		else
			multiply(*unit);
	}
	OsiUnitLabelListIter below(other.denominators);
	while (const OsiUnitLabel* unit = below++)
	{
		if (dividing)
			multiply(*unit);
		else
			divide(*unit);
	}
}

bool OsiCompositeUnitLabel::isEqual(const OsiCompositeUnitLabel& other) const
{
	return holdsAll(numerators, other.numerators) && holdsAll(denominators, other.denominators);
}

void OsiCompositeUnitLabel::concatenateWith(string_ext<char>& text) const
{
	appendAll(numerators, text);
	if (denominators.isEmpty())
		return;
	if (numerators.isEmpty())
		text += "1";
	text += "/";
	appendAll(denominators, text);
}

void OsiCompositeUnitLabel::reset()
{
	numerators.removeAll();
	denominators.removeAll();
}
