// A read-out pinned to a plot's data: a graph element that the graph keeps
// in its marker list, hears events after the free elements, can be hit at a
// point, and follows plots that the graph replaces. The kinds lay out their
// read-out from the parts here: a cross on a data point, a framed text box
// beside it kept inside the graph's extent, and a tie line between them.
#pragma once

#include "vgui/vguigraphdata.h"
#include "vgui/vguigraphelement.h"
#include "vgui/vguigraphmarkerproperties.h"
#include "vgui/vguigraphmarkertype.h"
#include "vgui/vguigraphpoint.h"
#include "vgui/vguireference.h"

#include "osi/base/string_ext.h"

#include "vstgui/lib/cdrawdefs.h"

class VGuiGraphPlot;

class VGuiGraphMarker : public VGuiGraphElement
{
public:
	explicit VGuiGraphMarker(VGuiGraph* graph = nullptr);
	// Pinned to data point index of the plot's data.
	VGuiGraphMarker(VGuiGraphMarkerType type, VGuiGraph* graph, VGuiGraphPlot* plot, int index,
	                const VGuiGraphPoint& point);
	// On the same graph, plot and point; laid out afresh when added.
	VGuiGraphMarker(const VGuiGraphMarker& other);

	// A new marker of the same kind equal to this one.
	virtual VGuiGraphMarker* copy() const = 0;

	// Inside the hit rectangle, whose right and bottom edges are outside.
	bool contains(const VGuiPoint& p) const
	{
		return hit.left <= p.x && p.x < hit.right && hit.top <= p.y && p.y < hit.bottom;
	}
	virtual void notifyPlotReplaced(VGuiGraphPlot* old, VGuiGraphPlot* replacement);
	void properties(VGuiGraphMarkerProperties* p);
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	// Ranges, the plot area and replaced axes move the read-out.
	bool shouldInvalidate(VGuiGraphChanges changes) const override;

	VGuiGraphMarkerType type() const { return kind; }
	int index() const { return dataIndex; }
	VGuiGraphPlot* plot() const { return owningPlot; }

protected:
	// The text, framed, beside anchor (to the right unless told otherwise,
	// moved inside the graph's extent); the hit rectangle becomes its box.
	void realizeMarkerText(VSTGUI::CDrawContext* context, const VGuiPoint& anchor,
	                       const string_ext<char>& text, const VGuiFont& font,
	                       VSTGUI::CHoriTxtAlign align);
	void realizeMarkerCross(VSTGUI::CDrawContext* context, const VGuiPoint& p);
	void realizeMarkerTie(VSTGUI::CDrawContext* context, const VGuiPoint& from,
	                      const VGuiPoint& to);
	// A measurement between data points i1 and i2: crosses on both, a
	// bracket above them and the text above its middle.
	void realizeMarkerBracket(VSTGUI::CDrawContext* context, int i1, int i2,
	                          const string_ext<char>& text);
	// Starts a layout: an empty group; false when there is nothing to show.
	bool beginRealize();
	// Ends it: the group's extent becomes the marker's.
	void endRealize();
	// The screen point of data point i (or of the marked point without data).
	VGuiPoint screenPoint(int i) const;
	// The data point i, or the marked point without data.
	VGuiGraphPoint dataPoint(int i) const;
	int dataId() const { return data ? data->identifier() : -1; }

	VGuiRect hit;
	VGuiGraphMarkerType kind = VGuiDataMarkerType;
	VGuiReference<VGuiGraphMarkerProperties> props;
	VGuiGraphPlot* owningPlot = nullptr;
	VGuiReference<VGuiGraphData> data;
	int dataIndex = 0;
	VGuiGraphPoint point;
};
