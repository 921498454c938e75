// A data read-out: the point under a data cursor, "x, y" and the label.
#pragma once

#include "vgui/vguigraphcursormsg.h"
#include "vgui/vguigraphpoint.h"

class VGuiDataCursorMsg : public VGuiGraphCursorMsg
{
public:
	enum
	{
		Type = 1
	};

	VGuiDataCursorMsg(VGuiGraph* graph, const string_ext<char>& label, int precision,
	                  const VGuiGraphPoint& p, int dataId);

	string_ext<char> text() const override { return joined({textX(), textY()}); }
	int type() const override { return Type; }
	string_ext<char> textX() const { return formatted(xFormat, point.x); }
	string_ext<char> textY() const { return formatted(yFormat, point.y); }

	VGuiGraphPoint point;
};
