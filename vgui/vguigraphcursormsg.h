// What a cursor reports to its listeners: the base of the read-out messages.
// It keeps the axes' value formatters and scales, the precision, the data's
// identifier (-1 for none) and a label appended to every text. A message
// lives for one broadcast.
#pragma once

#include "osi/base/string_ext.h"
#include "osi/text/osivalueformat.h"

#include <memory>

class VGuiGraph;

class VGuiGraphCursorMsg
{
public:
	VGuiGraphCursorMsg(VGuiGraph* graph, const string_ext<char>& label, int precision, int dataId);
	virtual ~VGuiGraphCursorMsg() = default;

	// Takes fresh formatters and scales from the graph's axes.
	virtual void notifyAxesChanged(VGuiGraph* graph);
	virtual string_ext<char> text() const = 0;
	virtual int type() const = 0;

	int dataId() const { return id; }

protected:
	// The value by a formatter, empty without one.
	string_ext<char> formatted(const std::unique_ptr<OsiValueFormat>& format, double value) const;
	// Parts joined by ", ", empty parts left out, then the label.
	string_ext<char> joined(std::initializer_list<string_ext<char>> parts) const;

	string_ext<char> label;
	std::unique_ptr<OsiValueFormat> xFormat;
	std::unique_ptr<OsiValueFormat> yFormat;
	bool xLogarithmic = false;
	bool yLogarithmic = false;
	bool xPower = false;
	bool yPower = false;
	int digits;
	int id;
};
