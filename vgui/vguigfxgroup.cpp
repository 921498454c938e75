#include "vgui/vguigfxgroup.h"

#include "vgui/vguigfxpolyline.h"
#include "vgui/vguigfxpolylinebuilder.h"

VGuiGfxGroup::VGuiGfxGroup(const VGuiGfxGroup& other) : VGuiGfxObject(other)
{
	other.objects.forEach([this](VGuiGfxObject* o) { objects.append(o->copy()); });
}

VGuiGfxGroup::~VGuiGfxGroup()
{
	deleteAll();
}

VGuiGfxObject* VGuiGfxGroup::copy() const
{
	return new VGuiGfxGroup(*this);
}

void VGuiGfxGroup::draw(VSTGUI::CDrawContext* context, const VGuiRect& update) const
{
	objects.forEach([&](VGuiGfxObject* o) {
		if (o->isIn(update))
			o->draw(context, update);
	});
}

bool VGuiGfxGroup::state(VGuiGfxState state, const VGuiPoint& p, VGuiRect& repaint)
{
	bool changed = false;
	objects.forEach([&](VGuiGfxObject* o) { changed = o->state(state, p, repaint) || changed; });
	return changed;
}

void VGuiGfxGroup::moveBy(const VGuiPoint& d)
{
	objects.forEach([&](VGuiGfxObject* o) { o->moveBy(d); });
	VGuiGfxObject::moveBy(d);
}

void VGuiGfxGroup::insert(VGuiGfxObject* object)
{
	objects.insert(object);
}

void VGuiGfxGroup::append(VGuiGfxObject* object)
{
	objects.append(object);
}

void VGuiGfxGroup::takePolylines(VGuiGfxPolylineBuilder& builder, bool atFront)
{
	OsiList made;
	builder.putPolylines(made, false);
	while (void* polyline = made.removeFirst())
	{
		if (atFront)
			insert(static_cast<VGuiGfxPolyline*>(polyline));
		else
			append(static_cast<VGuiGfxPolyline*>(polyline));
	}
}

void VGuiGfxGroup::removeAll()
{
	objects.removeAll();
}

void VGuiGfxGroup::deleteAll()
{
	objects.forEach([](VGuiGfxObject* o) { o->release(); });
	objects.removeAll();
}

void VGuiGfxGroup::findExtent()
{
	VGuiRect all;
	objects.forEach([&](VGuiGfxObject* o) { all = all.join(o->extent()); });
	setExtent(all);
}
