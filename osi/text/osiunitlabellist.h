// The unit lists of a composite unit: lists of units that they own, and
// their iterator.
#pragma once

#include "osi/containers/colist.h"
#include "osi/text/osiunitlabel.h"

#include <memory>

class OsiUnitLabelList
{
public:
	OsiUnitLabelList() = default;
	~OsiUnitLabelList() { removeAll(); }
	OsiUnitLabelList(const OsiUnitLabelList&) = delete;
	OsiUnitLabelList& operator=(const OsiUnitLabelList&) = delete;

	void append(std::unique_ptr<OsiUnitLabel> unit);
	// The first unit of that name (compared exactly), or null.
	OsiUnitLabel* find(const string_ext<char>& name) const;
	// Takes a unit of this list out, handing it over.
	std::unique_ptr<OsiUnitLabel> take(OsiUnitLabel* unit);
	// Takes a unit of this list out and destroys it.
	void destroy(OsiUnitLabel* unit) { take(unit); }
	void removeAll();
	bool isEmpty() const { return units.isEmpty(); }

private:
	friend class OsiUnitLabelListIter;

	OsiList units;
};

// Walks a unit list in order: it++ returns each unit, then null.
class OsiUnitLabelListIter
{
public:
	explicit OsiUnitLabelListIter(const OsiUnitLabelList& list) : iter(list.units) {}
	OsiUnitLabel* operator++(int) { return static_cast<OsiUnitLabel*>(iter++); }

private:
	OsiListIter iter;
};
