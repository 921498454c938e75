// The tool that the mouse drives on a graph (zoom, pan, data read-outs): a
// graph element that hears every event last and follows plots that the
// graph replaces. The cursors themselves derive from it.
//
// The drag protocol: a press of the left button alone starts a drag at the
// pointer (beginAction), moves follow it (moveAction) and the release ends
// it (endAction with the start, the end and whether Escape cancelled it). A
// double click neither starts nor ends one. The cursor is visible while
// dragging. Read-outs go to the listeners of dataMessages, measurements
// between two points (area, difference) to those of measurementMessages.
#pragma once

#include "vgui/vguigraphcursorcallback.h"
#include "vgui/vguigraphelement.h"

class VGuiColour;
class VGuiGraphPlot;

class VGuiGraphCursor : public VGuiGraphElement
{
public:
	explicit VGuiGraphCursor(VGuiGraph* graph = nullptr);

	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	// Builds nothing by default.
	void realize(VSTGUI::CDrawContext* context) override;
	bool onKeyUpEvent(VstKeyCode& key, VSTGUI::CView* view) override;
	bool onMouseDownEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons, bool& handled,
	                      VSTGUI::CView* view) override;
	bool onMouseUpEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons, bool& handled,
	                    VSTGUI::CView* view) override;
	bool onMouseMovedEvent(VSTGUI::CPoint& where, const VSTGUI::CButtonState& buttons,
	                       bool& handled, VSTGUI::CView* view) override;

	virtual void moveAction(const VGuiPoint&) {}
	virtual void beginAction(const VGuiPoint&) {}
	virtual void endAction(const VGuiPoint& start, const VGuiPoint& end, bool cancelled);
	// old has been replaced by replacement on the graph (both the same plot
	// when its data changed).
	virtual void notifyPlotReplaced(VGuiGraphPlot*, VGuiGraphPlot*) {}
	// The axes were laid out afresh (replaced, new ranges or a new plot
	// area): what the cursor placed on the screen has moved.
	virtual void notifyAxesChanged() {}
	// The identifier of the data that the cursor reads; -1 for none.
	virtual int focusId() const { return -1; }
	// The line colour of the plot that the cursor reads; false, leaving
	// colour as it is, for none.
	virtual bool focusColour(VGuiColour&) const { return false; }

	// Shows or hides the cursor's figures, repainting where they were.
	void visible(bool on);
	bool visible() const { return shown; }
	void cancel() { cancelled = true; }
	bool isDragging() const { return dragging; }
	void notifyDataCursorMsg(const VGuiPoint& p, int dataId) const;
	void notifyDataCursorMsg(const VGuiGraphPoint& p, int dataId) const;

	VGuiGraphCursorCallback dataMessages;
	VGuiGraphCursorCallback measurementMessages;

protected:
	// The left button and no other.
	static bool leftAlone(const VSTGUI::CButtonState& buttons);
	// Starts a drag at p.
	void startDrag(const VGuiPoint& p);
	// The rectangle between the drag's ends, for zooming.
	void realizeRubberBand();
	// A line from the drag's start to its end, for panning.
	void realizeDragLine();
	// Appends a cross centred on p (tickSize() each way) to the group.
	void realizeCross(const VGuiPoint& p);
	// Appends an open line through the points to the group, in the cursor
	// colour, one pixel wide: what every cursor draws its marks with.
	void appendCursorLine(const VGuiPoint* points, int count);
	// 6 points in whole pixels.
	static double tickSize();

	VGuiPoint start;
	VGuiPoint end;
	bool shown = false;
	bool cancelled = false;
	bool dragging = false;
	bool doubleClick = false;
};
