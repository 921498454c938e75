// A graph element that draws data: the base of line and scatter plots. It
// gives the graph its data's extremes for automatic scaling and its data
// items for the keyboard focus, and draws with shared plot properties.
#pragma once

#include "vgui/vguigraphelement.h"
#include "vgui/vguigraphplotproperties.h"
#include "vgui/vguigraphpoint.h"
#include "vgui/vguireference.h"

class VGuiGraphData;

class VGuiGraphPlot : public VGuiGraphElement
{
public:
	// Without properties the plot draws green, solid, 1 pixel wide.
	explicit VGuiGraphPlot(int identifier, VGuiGraphPlotProperties* properties = nullptr);

	// Replaces the properties (null is ignored) and redraws the plot.
	void properties(VGuiGraphPlotProperties* p);
	VGuiGraphPlotProperties* properties() const { return props.get(); }
	// Lays the plot out again and tells its graph that its data changed
	// (with rescale, an auto-scaled graph fits its ranges afresh).
	void refresh(bool rescale);
	using VGuiGraphElement::refresh;

	bool isFocusable() const { return focusable; }
	void setFocusable(bool f) { focusable = f; }

	// The extremes of the plot's data, componentwise; (0, 0, 0) without.
	virtual VGuiGraphPoint maximum() const = 0;
	virtual VGuiGraphPoint minimum() const = 0;
	virtual VGuiGraphPoint minimumPositive(double fallback) const = 0;
	// The data items that the focus walks over.
	virtual int dataCount() const = 0;
	virtual VGuiGraphData* dataItem(int i) const = 0;

	// Ranges, the plot area, properties and replaced axes all move or
	// restyle the drawing.
	bool shouldInvalidate(VGuiGraphChanges changes) const override;

protected:
	VGuiGraphPlot(const VGuiGraphPlot& other);

	VGuiReference<VGuiGraphPlotProperties> props;
	bool focusable = true;
};
