#include "osi/text/osiunitlabellist.h"

void OsiUnitLabelList::append(std::unique_ptr<OsiUnitLabel> unit)
{
	units.append(unit.release());
}

OsiUnitLabel* OsiUnitLabelList::find(const string_ext<char>& name) const
{
	OsiUnitLabelListIter iter(*this);
	while (OsiUnitLabel* unit = iter++)
		if (unit->name == name)
			return unit;
	return nullptr;
}

std::unique_ptr<OsiUnitLabel> OsiUnitLabelList::take(OsiUnitLabel* unit)
{
	return std::unique_ptr<OsiUnitLabel>(units.remove(unit) ? unit : nullptr);
}

void OsiUnitLabelList::removeAll()
{
	while (void* unit = units.removeFirst())
		delete static_cast<OsiUnitLabel*>(unit);
}
