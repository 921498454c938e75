// A cursor that snaps to the data of the graph's focused plot: a drag finds
// the data point under the pointer (or the point interpolated on the line
// between two data points), from where the last search ended, and the kinds
// report what they read there through notifyConstrainedDataCursorMsg. Tab
// moves the focus to the previous plot's data, Shift+Tab to the next.
#pragma once

#include "vgui/vguigraphcursor.h"
#include "vgui/vguigraphdata.h"
#include "vgui/vguigraphpoint.h"
#include "vgui/vguireference.h"

class VGuiGraphMarker;

class VGuiDataCursorBase : public VGuiGraphCursor
{
public:
	// Takes the graph's current focus.
	VGuiDataCursorBase(VGuiGraph* graph, bool interpolate);

	bool onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view) override;
	bool onMouseDownEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons, bool& handled,
	                      VSTGUI::CView* view) override;
	bool onMouseUpEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons, bool& handled,
	                    VSTGUI::CView* view) override;
	bool onMouseMovedEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                       bool& handled, VSTGUI::CView* view) override;
	void notifyPlotReplaced(VGuiGraphPlot* old, VGuiGraphPlot* replacement) override;
	// Puts the snapped points where the data read now appear.
	void notifyAxesChanged() override;
	int focusId() const override { return dataId(); }
	bool focusColour(VGuiColour& colour) const override;

	// Snaps to the data at the screen point p; with begin, the point found is
	// also where a two-point measurement starts.
	virtual void findDataPoint(const VGuiPoint& p, bool begin);
	// point and start: the data read at the pointer and at the drag's start;
	// changed: the snapped screen point moved.
	virtual void notifyConstrainedDataCursorMsg(VGuiGraphPoint& point, VGuiGraphPoint& start,
	                                            VGuiGraphPoint& third, int dataId, int index,
	                                            bool changed) = 0;

	// Moves to the previous plot's data, or with next to the next one's.
	void changeFocus(bool next);
	// The screen point a fraction of the way along the segment from data
	// point i to i + 1 (y in whole pixels), and that point in graph units.
	void interpolateDataPoint(int i, double fraction, VGuiPoint& screen, VGuiGraphPoint& g) const;

	VGuiGraphPlot* plot() const { return focused; }
	VGuiGraphData* data() const { return followed.get(); }
	int index() const { return searchIndex; }
	int startIndex() const { return firstIndex; }
	const VGuiPoint& snappedPoint() const { return snapped; }
	const VGuiGraphPoint& dataPoint() const { return point; }

protected:
	// Adds a new marker to the graph (taking over the creator's reference).
	void placeMarker(VGuiGraphMarker* marker);
	void follow(VGuiGraphPlot* p, VGuiGraphData* d);
	int dataId() const { return followed ? followed->identifier() : -1; }
	// The fraction of the way along segment i at the screen x.
	double fractionAt(int i, double x) const;
	// The first index from the search index whose x reaches x.
	int search(double x) const;

	VGuiGraphPlot* focused = nullptr;
	VGuiReference<VGuiGraphData> followed;
	int searchIndex = 0;
	int firstIndex = 0;
	double firstFraction = 0.0;
	bool interpolate;
	VGuiPoint snapped;
	VGuiPoint previousSnapped;
	VGuiPoint snappedStart;
	VGuiGraphPoint point;
	VGuiGraphPoint startPoint;
};
