// Graphic objects drawn, hit-tested and moved as one: what a graph element
// fills when it lays itself out.
#pragma once

#include "vgui/vguigfxobject.h"
#include "vgui/vguigfxobjectlist.h"

class VGuiGfxPolylineBuilder;

class VGuiGfxGroup : public VGuiGfxObject
{
public:
	VGuiGfxGroup() = default;
	// Releases the objects it holds.
	~VGuiGfxGroup() override;

	VGuiGfxObject* copy() const override;
	// Draws the objects that reach into update, front to back: objects
	// appended later lie on top.
	void draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const override;
	// Asks every object in turn; true when any changed.
	bool state(VGuiGfxState state, const VGuiPoint& p, VGuiRect& repaint) override;
	// Moves every object and the group's extent.
	void moveBy(const VGuiPoint& d) override;

	// Both take over the reference the caller hands in (the creator's, for a
	// new object); a caller that keeps the pointer too locks it first. Null
	// is ignored.
	void insert(VGuiGfxObject* object); // at the front
	void append(VGuiGfxObject* object); // at the end
	// Takes the builder's polylines with their references, in the order the
	// builder made them, each inserted at the front when atFront is set, else
	// appended.
	void takePolylines(VGuiGfxPolylineBuilder& builder, bool atFront);
	// Empties the list and hands the references back to whoever holds the
	// pointers; nothing is destroyed here.
	void removeAll();
	// Empties the list, releasing every object.
	void deleteAll();
	// The extent becomes the union of the objects' extents.
	void findExtent();

	int count() const { return objects.count(); }
	const VGuiGfxObjectList& list() const { return objects; }

protected:
	// Holds copies of other's objects.
	VGuiGfxGroup(const VGuiGfxGroup& other);

private:
	VGuiGfxObjectList objects;
};
