#include "vgui/vguigraphcache.h"

#include "vgui/vguigraph.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cgraphicstransform.h"

using namespace VSTGUI;

void VGuiGraphCache::paint(VGuiGraph& graph, CDrawContext* context, const VGuiRect& view,
                           const VGuiRect& update)
{
	const VGuiRect stale = graph.takeStaleContent();
	if (!fits(context, view))
		make(graph, context, view);
	else if (!stale.isNull())
		redraw(graph, stale.pixelBounds().intersect(view));
	// An empty view has no picture.
	if (!picture)
		return graph.paint(context, update);
	const CRect target = update.toCRect();
	context->drawBitmap(picture->getBitmap(), target,
	                    target.getTopLeft() - view.toCRect().getTopLeft());
	graph.paintCursor(context, update);
}

bool VGuiGraphCache::fits(const CDrawContext* context, const VGuiRect& view) const
{
	return picture && place == view && picture->getScaleFactor() == context->getScaleFactor() &&
	       mode == context->getDrawMode() &&
	       mode.integralMode() == context->getDrawMode().integralMode();
}

void VGuiGraphCache::make(const VGuiGraph& graph, const CDrawContext* context, const VGuiRect& view)
{
	picture = COffscreenContext::create(view.toCRect().getSize(), context->getScaleFactor());
	place = view;
	mode = context->getDrawMode();
	if (picture)
		redraw(graph, view);
}

void VGuiGraphCache::redraw(const VGuiGraph& graph, const VGuiRect& area)
{
	if (area.isNull())
		return;
	picture->beginDraw();
	picture->setDrawMode(mode);
	{
		CDrawContext::Transform toPicture(*picture,
		                                  CGraphicsTransform().translate(-place.left, -place.top));
		picture->setClipRect(area.toCRect());
		picture->clearRect(area.toCRect());
		graph.paintContent(picture, area);
	}
	picture->endDraw();
}
