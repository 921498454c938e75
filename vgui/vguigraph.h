// One interactive graph: up to three axes (x, y, z), the plots that draw data
// sets, the markers pinned to them, free elements, one active cursor, a
// keyboard focus over the plots' data, and the bookkeeping that batches
// changes and repaints only what changed.
//
// A graph has no window of its own: a VSTGUI view hosts it, forwards mouse,
// wheel and key events to it, paints it, and is asked to invalidate what
// must be repainted. Changes are batched by nested beginUpdate()/endUpdate();
// the outermost endUpdate() lays out what changed and invalidates it, once.
// A graph starts closed (no update takes effect until open()) and detached
// (not shown). Screen points are in the hosting view's coordinates.
//
// Reference counted: created with one reference, it deletes itself with the
// last.
#pragma once

#include "vgui/vguigraphautoscalemode.h"
#include "vgui/vguigraphchanges.h"
#include "vgui/vguigraphfocus.h"
#include "vgui/vguigraphfocusoperation.h"
#include "vgui/vguigraphlist.h"
#include "vgui/vguigraphpoint.h"
#include "vgui/vguirect.h"
#include "vgui/vguireference.h"

#include "osi/base/referencecount.h"
#include "osi/base/string_ext.h"

#include "vstgui/lib/cbuttonstate.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/cpoint.h"
#include "vstgui/lib/vstguifwd.h"
#include "vstgui/lib/vstkeycode.h"

#include <cstdint>

class GuiIntegralCursorMultiplier;
class VGuiGraphAxis;
class VGuiGraphAxisProperties;
class VGuiGraphCursor;
class VGuiGraphData;
class VGuiGraphElement;
class VGuiGraphFrameProperties;
class VGuiGraphGrid;
class VGuiGraphGridProperties;
class VGuiGraphMarker;
class VGuiGraphMarkerProperties;
class VGuiGraphPlot;

using VGuiGraphPlotList = VGuiGraphList<VGuiGraphPlot>;
using VGuiGraphMarkerList = VGuiGraphList<VGuiGraphMarker>;
using VGuiGraphElementList = VGuiGraphList<VGuiGraphElement>;
// Inserted at the front, taken from the back: first in, first out.
using VGuiGraphElementQueue = VGuiGraphList<VGuiGraphElement>;

class VGuiGraph : public OsiReferenceCount
{
public:
	// multiplier: the factor of integral read-outs, not owned; may be null.
	explicit VGuiGraph(GuiIntegralCursorMultiplier* multiplier);
	~VGuiGraph() override;

	// A new graph of the same kind with this one's title, extent, properties
	// and copies of its axes.
	virtual VGuiGraph* copy() const = 0;

	// Properties: each replaces the held object (taking a reference on it)
	// and marks the graph for a redraw. Null is ignored.
	void gridProperties(VGuiGraphGridProperties* p);
	void axisProperties(VGuiGraphAxisProperties* p);
	void frameProperties(VGuiGraphFrameProperties* p);
	void markerProperties(VGuiGraphMarkerProperties* p);
	void integralCursorMultiplier(GuiIntegralCursorMultiplier* m) { multiplier = m; }
	VGuiGraphGridProperties* gridProperties() const { return gridProps.get(); }
	VGuiGraphAxisProperties* axisProperties() const { return axisProps.get(); }
	VGuiGraphFrameProperties* frameProperties() const { return frameProps.get(); }
	VGuiGraphMarkerProperties* markerProperties() const { return markerProps.get(); }
	GuiIntegralCursorMultiplier* integralCursorMultiplier() const { return multiplier; }

	// Content. The graph takes a reference on what it is given and releases
	// it on removal. With rescale set and auto-scale on, the axes' ranges
	// are fitted to the data afresh.
	void addPlot(VGuiGraphPlot* plot, bool rescale);
	void removePlot(VGuiGraphPlot* plot, bool rescale);
	// Puts replacement in old's place (old may be replacement itself: its
	// data changed) and tells the cursor and the markers.
	void replacePlot(VGuiGraphPlot* old, VGuiGraphPlot* replacement, bool rescale);
	void removeAllPlots();
	VGuiGraphPlot* plotWithId(int id) const;
	void addMarker(VGuiGraphMarker* marker);
	// Removes the marker hit at a screen point, if any.
	void removeMarker(const VGuiPoint& p);
	VGuiGraphMarker* markerWithId(int id) const;
	void addElement(VGuiGraphElement* element);
	void removeElement(VGuiGraphElement* element);
	VGuiGraphElement* elementWithId(int id) const;
	// Activates or deactivates an element and repaints it.
	void isActive(VGuiGraphElement* element, bool active);
	// The tool that the mouse drives; null for none.
	void graphCursor(VGuiGraphCursor* cursor);
	VGuiGraphCursor* graphCursor() const { return cursor.get(); }
	// Puts axis into *slot (one of xAxisSlot() .. zAxisSlot()) with grid,
	// releasing the axis there; with copyAttributes the new axis first takes
	// the old one's title, units, properties and settings. Signals changes.
	void replaceAxis(VGuiGraphAxis** slot, VGuiGraphAxis* axis, VGuiGraphGrid* grid,
	                 VGuiGraphChanges changes, bool copyAttributes);
	VGuiGraphAxis** xAxisSlot() { return &x; }
	VGuiGraphAxis** yAxisSlot() { return &y; }
	VGuiGraphAxis** zAxisSlot() { return &z; }
	VGuiGraphAxis* xAxis() const { return x; }
	VGuiGraphAxis* yAxis() const { return y; }
	VGuiGraphAxis* zAxis() const { return z; }
	VGuiGraphGrid* xGrid() const { return grids[0].get(); }
	VGuiGraphGrid* yGrid() const { return grids[1].get(); }

	// Ranges. The setters mark the axes whose bounds change (a stored NaN
	// always counts as a change); the new ranges reach the axes at the next
	// update.
	void maximum(const VGuiGraphPoint& p);
	void minimum(const VGuiGraphPoint& p);
	void minimumPositive(const VGuiGraphPoint& p) { smallestPositive = p; }
	void range(const VGuiGraphPoint& max, const VGuiGraphPoint& min,
	           const VGuiGraphPoint& minPositive);
	const VGuiGraphPoint& maximum() const { return largest; }
	const VGuiGraphPoint& minimum() const { return smallest; }
	const VGuiGraphPoint& minimumPositive() const { return smallestPositive; }
	// Turns automatic scaling on or off; switching it on with rescaleNow
	// fits the ranges to the data at once.
	void autoScale(bool on, bool rescaleNow);
	bool autoScale() const { return autoScaling; }
	void autoScaleMode(VGuiGraphAutoScaleMode mode) { scaleMode = mode; }
	VGuiGraphAutoScaleMode autoScaleMode() const { return scaleMode; }
	// Axes (1 x, 2 y, 4 z) whose automatic range always takes in zero.
	void includeZero(uint32_t axes) { zeroIncluded = axes; }
	// Fit the ranges to the data with the given auto-scale mode (the graph's
	// own with VGuiGraphUseStoredMode). A span above 0 and below 200 becomes
	// the axis's maximum decibel span first.
	void zoomAllX(VGuiGraphAutoScaleMode mode, double span);
	void zoomAllY(VGuiGraphAutoScaleMode mode, double span);
	void zoomAllZ(VGuiGraphAutoScaleMode mode, double span);
	void zoomAll(VGuiGraphAutoScaleMode mode, double xSpan, double ySpan, double zSpan);
	// Zooms to the rectangle dragged between a and b; a click (a drag of 10
	// pixels or less either way) zooms in by 0.707 about the click.
	void zoomIn(const VGuiPoint& a, const VGuiPoint& b);
	// The reverse: the plot area shrinks into the dragged rectangle; a click
	// zooms out by 1.414 (not quite undoing a click's zoom in).
	void zoomOut(const VGuiPoint& a, const VGuiPoint& b);
	// Moves the ranges with the pointer from one screen point to another.
	void pan(const VGuiPoint& from, const VGuiPoint& to);

	// Mapping between graph and screen through the axes. map moves p by the
	// point's position (from the plot area's top left, or from the view's
	// origin when absolute) and returns whether the point lies in the ranges.
	bool map(VGuiPoint& p, const VGuiGraphPoint& g, bool absolute) const;
	void inverseMap(VGuiGraphPoint& g, const VGuiPoint& p) const;
	bool visible(const VGuiGraphPoint& g) const;
	// Cuts the segment from a to b down to its part inside the ranges, as it
	// runs straight on the screen; false, changing nothing, when no part is.
	bool clip(VGuiGraphPoint& a, VGuiGraphPoint& b) const;

	// Focus over the plots' data: returns the plot (null when none can take
	// the focus) and its data.
	void focus(VGuiGraphPlot*& plot, VGuiGraphData*& data, VGuiGraphFocusOperation op) const;
	void currentFocus(VGuiGraphPlot*& plot, VGuiGraphData*& data) const
	{
		focus(plot, data, VGuiGraphFocusReset);
	}
	void nextFocus(VGuiGraphPlot*& plot, VGuiGraphData*& data) const
	{
		focus(plot, data, VGuiGraphFocusNext);
	}
	void prevFocus(VGuiGraphPlot*& plot, VGuiGraphData*& data) const
	{
		focus(plot, data, VGuiGraphFocusPrevious);
	}

	// Update protocol.
	// Makes updates effective; false, changing nothing, when already open.
	bool open();
	void beginUpdate();
	void endUpdate();
	void signalChanges(VGuiGraphChanges c) { changes |= c; }
	// Queues an element to be laid out and repainted at the next update.
	void realize(VGuiGraphElement* element);
	void invalidateFrame();
	// What the graph draws below its cursor changed in r: repainted, and no
	// longer what a picture of the graph without its cursor shows.
	void invalidateExtent(const VGuiRect& r)
	{
		invalid = invalid.join(r);
		stale = stale.join(r);
	}
	// An element's drawing in r changed; the cursor's lies over the rest.
	void invalidateElement(const VGuiGraphElement* element, const VGuiRect& r);
	// Where the drawing below the cursor changed since the last call.
	VGuiRect takeStaleContent();
	void invalidateMarkers();
	// Places the graph in its hosting view.
	void extent(const VGuiRect& r, VSTGUI::CView* view);
	void attached(bool on) { isAttached = on; }
	void suspended(bool on) { isSuspended = on; }
	// Lays out and invalidates what changed; runs when the outermost update
	// closes.
	void graphUpdate();

	const VGuiRect& extent() const { return bounds; }
	const VGuiRect& plotArea() const { return plotRect; }
	bool attached() const { return isAttached; }

	// Events from the hosting view: handed to the elements in list order,
	// then the markers, then the cursor, while each lets it pass (returns
	// true). The result is the last receiver's.
	bool onKeyDownEvent(VstKeyCode& key, VSTGUI::CView* view);
	bool onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view);
	bool onMouseDownEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                      VSTGUI::CView* view);
	bool onMouseUpEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                    VSTGUI::CView* view);
	bool onMouseMovedEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                       VSTGUI::CView* view);
	bool onMouseEnteredEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                         VSTGUI::CView* view);
	bool onMouseExitedEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                        VSTGUI::CView* view);
	bool onMouseCancelledEvent(VSTGUI::CView* view);
	bool onMouseWheelEvent(VSTGUI::CPoint& where, const VSTGUI::CMouseWheelAxis& axis,
	                       const float& distance, const VSTGUI::CButtonState& buttons,
	                       VSTGUI::CView* view);

	// Paints what reaches into update: background, grids, plots (clipped to
	// the plot area), axes, frame, markers, elements, cursor.
	void paint(VSTGUI::CDrawContext* context, const VGuiRect& update) const;
	// All of it but the cursor.
	void paintContent(VSTGUI::CDrawContext* context, const VGuiRect& update) const;
	void paintCursor(VSTGUI::CDrawContext* context, const VGuiRect& update) const;

	string_ext<char> title;

protected:
	// Copies title, extent, properties and axes.
	VGuiGraph(const VGuiGraph& other);

	// Lays out the whole graph: frame and plot area, axes, plots, markers.
	virtual void realize(VSTGUI::CDrawContext* context);
	// Places the plot area inside the extent and builds the frame.
	virtual void realizeFrame(VSTGUI::CDrawContext* context) = 0;
	virtual void drawBackground(VSTGUI::CDrawContext* context, const VGuiRect& update) const = 0;
	virtual void drawFrame(VSTGUI::CDrawContext* context, const VGuiRect& update) const = 0;
	// Pixels between the plot area's edge and the axes' tick marks.
	virtual double frameOutset() const { return 0.0; }
	// A plot area that moved or changed its size relays the plots.
	void setPlotArea(const VGuiRect& r);
	// The axes take the graph's ranges.
	void pushRanges();

private:
	void realizeAxis(VSTGUI::CDrawContext* context);
	void realizePlots(VSTGUI::CDrawContext* context);
	void realizeMarkers(VSTGUI::CDrawContext* context);
	void realizeQueued(VSTGUI::CDrawContext* context);
	void realizeElements(VSTGUI::CDrawContext* context);
	// Realizes an element, joining its old and new extent into the invalid
	// rectangle.
	void realizeInvalidating(VGuiGraphElement* element, VSTGUI::CDrawContext* context);
	void invalidateView();
	VSTGUI::CDrawContext* layoutContext();

	void findGraphRange(bool excludeX, bool excludeY, bool excludeZ);
	void updateExcludeChanges(const bool exclude[3], const VGuiGraphPoint& oldMax,
	                          const VGuiGraphPoint& oldMin);
	// The lowest bound a logarithmic axis may show below max.
	void limitLogarithmicRanges();
	void zoomAllAxes(VGuiGraphAutoScaleMode mode, const double spans[3], const bool exclude[3]);
	void zoomBy(const VGuiPoint& a, const VGuiPoint& b, double clickFactor, bool in);
	// Stores new bounds, marking the present axes whose bounds differ (a
	// stored NaN always does).
	void take(VGuiGraphPoint& bound, const VGuiGraphPoint& p);
	void takeRanges(const VGuiGraphPoint& max, const VGuiGraphPoint& min);
	void updateDecibelSpan();
	void rescaleIfAuto(bool rescale);

	// Hands an event to the receivers in turn while they let it pass.
	template <typename Call> bool dispatch(Call call);

	VGuiRect bounds;
	VGuiRect plotRect;
	VGuiRect invalid;
	VGuiRect stale;
	VGuiGraphPlotList plotList;
	VGuiGraphMarkerList markerList;
	VGuiGraphElementList elementList;
	VGuiGraphElementQueue realizeQueue;
	VGuiReference<VGuiGraphGridProperties> gridProps;
	VGuiReference<VGuiGraphAxisProperties> axisProps;
	VGuiReference<VGuiGraphFrameProperties> frameProps;
	VGuiReference<VGuiGraphMarkerProperties> markerProps;
	VGuiReference<VGuiGraphGrid> grids[2];
	VGuiGraphAxis* x = nullptr;
	VGuiGraphAxis* y = nullptr;
	VGuiGraphAxis* z = nullptr;
	VGuiGraphPoint largest;
	VGuiGraphPoint smallest;
	VGuiGraphPoint smallestPositive;
	mutable VGuiGraphFocus graphFocus;
	GuiIntegralCursorMultiplier* multiplier;
	VGuiGraphAutoScaleMode scaleMode = VGuiGraphScaleAll;
	VGuiGraphChanges changes = VGuiGraphAllChanges;
	bool isAttached = false;
	bool isSuspended = false;
	bool opened = false;
	bool autoScaling = true;
	uint64_t updateDepth = 0;
	VGuiReference<VGuiGraphCursor> cursor;
	VSTGUI::CView* host = nullptr;
	uint32_t zeroIncluded = 0;
	// A context to measure text with while laying out, made on first use.
	VSTGUI::SharedPointer<VSTGUI::COffscreenContext> measuring;
};
