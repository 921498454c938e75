// The lines across a graph's plot area at the ticks of one axis. The axis
// collects them while it lays itself out: realizeBegin with the vector that
// every line spans from its tick, one realizeGridline per tick, realizeEnd.
// Reference counted; it holds its properties by reference.
#pragma once

#include "vgui/vguigfxgroup.h"
#include "vgui/vguigraphgridproperties.h"
#include "vgui/vguipoint.h"
#include "vgui/vguireference.h"

#include "osi/base/referencecount.h"

#include "vstgui/lib/vstguifwd.h"

class VGuiGraphGrid : public OsiReferenceCount
{
public:
	// Without properties the grid makes default ones.
	explicit VGuiGraphGrid(VGuiGraphGridProperties* properties);

	// Drops the old lines; each new line runs from its tick by (dx, dy).
	void realizeBegin(double dx, double dy);
	// A line from the tick at p, drawn at the given weight: 1 for labelled
	// ticks, less for the fainter lines between them.
	void realizeGridline(const VGuiPoint& p, double weight);
	void realizeEnd();
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const;

	// Null is ignored.
	void properties(VGuiGraphGridProperties* p);
	VGuiGraphGridProperties* properties() const { return props.get(); }

private:
	VGuiReference<VGuiGraphGridProperties> props;
	VGuiPoint across;
	VGuiGfxGroup lines;
};
