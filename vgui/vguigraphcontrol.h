// A VSTGUI control that hosts one graph: it makes the graph from a type
// description, hands the view's mouse, wheel and key events to it, paints
// it, keeps the graph's extent equal to the view's size, and repaints what
// the graph reports invalid (the graph is given the control as its host).
// While a filter-adjustment cursor drags, the control shows the focused data
// with the section's response applied, and tells its plot-edit listeners
// the section when the drag ends.
#pragma once

#include "vgui/vgui2dgraph.h"
#include "vgui/vguigraphcache.h"
#include "vgui/vguilineplot.h"
#include "vgui/vguiploteditmsg.h"
#include "vgui/vguireference.h"

#include "vstgui/lib/controls/ccontrol.h"

class VGuiGraphControlTypeInfo;

class VGuiGraphControl : public VSTGUI::CControl
{
public:
	VGuiGraphControl(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener, int tag,
	                 VSTGUI::CBitmap* background);
	// Another control without a graph of its own yet.
	VGuiGraphControl(const VGuiGraphControl& other);
	~VGuiGraphControl() override;

	// Makes the graph (see VGuiGraphControlTypeInfo::initialiseGraph for the
	// doubles); false, changing nothing, when there already is one.
	bool create(const VGuiGraphControlTypeInfo& info, double xMaximum, double xMinimum,
	            double yMaximum, double yMinimum, double yReference, double yMaximumSpan);
	VGuiGraph* graph() const { return shown.get(); }

	// Fitting to the parent view: the control takes the parent's size.
	void fitParent(bool on);
	bool sizeToFit() override;
	void setViewSize(const VSTGUI::CRect& rect, bool invalid = true) override;
	void parentSizeChanged() override;
	// Shows the graph afresh: extent, every change, the whole view repainted.
	void refresh();

	void draw(VSTGUI::CDrawContext* context) override;
	// Paints only what lies in updateRect (what VSTGUI repaints).
	void drawRect(VSTGUI::CDrawContext* context, const VSTGUI::CRect& updateRect) override;
	VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
	                                      const VSTGUI::CButtonState& buttons) override;
	VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
	                                    const VSTGUI::CButtonState& buttons) override;
	VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
	                                       const VSTGUI::CButtonState& buttons) override;
	VSTGUI::CMouseEventResult onMouseCancel() override;
	VSTGUI::CMouseEventResult onMouseEntered(VSTGUI::CPoint& where,
	                                         const VSTGUI::CButtonState& buttons) override;
	VSTGUI::CMouseEventResult onMouseExited(VSTGUI::CPoint& where,
	                                        const VSTGUI::CButtonState& buttons) override;
	void onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) override;
	void onKeyboardEvent(VSTGUI::KeyboardEvent& event) override;
	bool attached(VSTGUI::CView* parent) override;
	bool removed(VSTGUI::CView* parent) override;

	// Shows a copy of data (nothing without data or graph).
	void beginAdjust(VGuiGraphData* data);
	// The copy becomes data with the section's response applied.
	void trackAdjust(VGuiGraphData* data, VGuiGenericFilterSection* section);
	// Takes the copy away and tells the listeners; nothing without a
	// beginAdjust.
	void endAdjust(VGuiGenericFilterSection* section, bool cancelled);

	VGuiPlotEditMsgCallbackInstance plotEditCallbacks;

	CLASS_METHODS(VGuiGraphControl, CControl)

private:
	// The graph's answer as VSTGUI's: true is handled.
	static VSTGUI::CMouseEventResult result(bool handledByGraph);
	// Paints the graph's part in update, when the view shows.
	void paint(VSTGUI::CDrawContext* context, const VGuiRect& update);

	VGuiReference<VGui2dGraph> shown;
	// What lies below the cursor, so that a cursor drag repaints by copying.
	VGuiGraphCache picture;
	VGuiReference<VGuiGraphData> adjustedData;
	VGuiReference<VGuiLinePlot> adjustedPlot;
	bool fitsParent = false;
};
