// Base of the retained graphic objects that graph elements fill their groups
// with: an extent, a margin around it, line and fill colours, a line style
// and a line width. Objects are reference counted: the creator holds the
// first reference and the object deletes itself with the last.
#pragma once

#include "osi/base/referencecount.h"
#include "vgui/vguicolour.h"
#include "vgui/vguigfxstate.h"
#include "vgui/vguirect.h"

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cgraphicspath.h"
#include "vstgui/lib/clinestyle.h"

class VGuiGfxObject : public OsiReferenceCount
{
public:
	VGuiGfxObject() = default;
	VGuiGfxObject(const VGuiColour& lineColour, const VGuiColour& fillColour,
	              const VSTGUI::CLineStyle& lineStyle, double lineWidth);
	VGuiGfxObject(const VGuiRect& extent, double margin, const VGuiColour& lineColour,
	              const VGuiColour& fillColour, const VSTGUI::CLineStyle& lineStyle,
	              double lineWidth);
	~VGuiGfxObject() override = default;

	// A new object equal to this one, with a reference count of its own.
	virtual VGuiGfxObject* copy() const = 0;
	// Draws the object; update is the rectangle being repainted.
	virtual void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const = 0;
	// Follows the pointer. True when the object's look changed; it then joins
	// its extent into repaint. Plain shapes have no state.
	virtual bool state(VGuiGfxState state, const VGuiPoint& p, VGuiRect& repaint);
	// The extent grown on every side by the margin and half the line width:
	// everything the object paints.
	virtual VGuiRect physicalExtent() const;
	virtual VGuiRect extent() const;
	virtual VGuiPoint origin() const;
	// Inside the physical extent; its right and bottom edges are outside.
	virtual bool isIn(const VGuiPoint& p) const;
	// True when the physical extent and r share a non-empty rectangle.
	virtual bool isIn(const VGuiRect& r) const;
	virtual void moveBy(const VGuiPoint& d);

	void setExtent(const VGuiRect& r) { bounds = r; }
	double margin() const { return marginWidth; }
	void setMargin(double m) { marginWidth = m; }
	const VGuiColour& lineColour() const { return line; }
	void setLineColour(const VGuiColour& c) { line = c; }
	const VGuiColour& fillColour() const { return fill; }
	void setFillColour(const VGuiColour& c) { fill = c; }
	const VSTGUI::CLineStyle& lineStyle() const { return style; }
	void setLineStyle(const VSTGUI::CLineStyle& s) { style = s; }
	double lineWidth() const { return width; }
	void setLineWidth(double w) { width = w; }

	// r with every side pushed outwards by d (inwards for a negative d).
	static VGuiRect grown(const VGuiRect& r, double d);
	// The smallest rectangle holding points[0 .. count - 1]; null for none.
	static VGuiRect around(const VGuiPoint* points, int count);

protected:
	// The copy starts with a reference count of its own.
	VGuiGfxObject(const VGuiGfxObject& other);

	// Builds a path with addShape(CGraphicsPath&), fills it with the fill
	// colour, then strokes it with the line colour, style and width; an
	// invisible fill or line is skipped. The context's colours and line
	// settings are left changed.
	template <typename AddShape>
	void drawShape(VSTGUI::CDrawContext* context, AddShape addShape) const
	{
		drawShape(context, fill, addShape);
	}
	// The same with another fill colour.
	template <typename AddShape>
	void drawShape(VSTGUI::CDrawContext* context, const VGuiColour& fillWith,
	               AddShape addShape) const
	{
		const auto path = VSTGUI::owned(context->createGraphicsPath());
		if (!path)
			return;
		addShape(*path);
		fillAndStroke(context, path, fillWith);
	}

private:
	void fillAndStroke(VSTGUI::CDrawContext* context, VSTGUI::CGraphicsPath* path,
	                   const VGuiColour& fillWith) const;

	VGuiRect bounds;
	double marginWidth = 0.0;
	VGuiColour line;
	VGuiColour fill;
	VSTGUI::CLineStyle style;
	double width = 0.0;
};
