#include "vgui/vguigraphpictureview.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cgraphicstransform.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/platform/platformfactory.h"

VGuiGraphPictureView::VGuiGraphPictureView(VGuiGraph* graph, double width, double height)
: VSTGUI::CView(VSTGUI::CRect(0, 0, width, height)),
  shown(graph)
{
	shown->attached(true);
	shown->open();
	shown->extent(VGuiRect(getViewSize()), this);
}

VGuiGraphPictureView::~VGuiGraphPictureView()
{
	shown->attached(false);
}

void VGuiGraphPictureView::draw(VSTGUI::CDrawContext* context)
{
	shown->paint(context, VGuiRect(getViewSize()));
	setDirty(false);
}

std::vector<unsigned char> VGuiGraphPictureView::png(VSTGUI::CView& view, double scale)
{
	const auto context = VSTGUI::COffscreenContext::create(view.getViewSize().getSize() * scale);
	if (!context)
		return {};
	context->beginDraw();
	context->setDrawMode(VSTGUI::kAntiAliasing);
	{
		const VSTGUI::CDrawContext::Transform scaled(
		    *context, VSTGUI::CGraphicsTransform().scale(scale, scale));
		view.drawRect(context, view.getViewSize());
	}
	context->endDraw();
	const auto bytes = VSTGUI::getPlatformFactory().createBitmapMemoryPNGRepresentation(
	    context->getBitmap()->getPlatformBitmap());
	return std::vector<unsigned char>(bytes.begin(), bytes.end());
}
