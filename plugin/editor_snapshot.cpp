#include "editor_snapshot.h"

#include "nxvelora_controller.h"
#include "nxvelora_editor.h"
#include "pan_vstcommon.h"

#include "public.sdk/source/main/moduleinit.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/platform/linux/linuxfactory.h"
#include "vstgui/lib/platform/platformfactory.h"

bool InitModule();
bool DeinitModule();

namespace Steinberg {
namespace Vst {

void initEditorGraphics(const std::string& resourceDir)
{
	InitModule();
	if (auto* factory = VSTGUI::getPlatformFactory().asLinuxFactory())
		factory->setResourcePath(resourceDir + "/");
}

void exitEditorGraphics()
{
	DeinitModule();
}

std::vector<unsigned char> renderEditorPng(double degrees)
{
	using namespace VSTGUI;
	auto controller = Steinberg::owned(new NxVeloraController);
	controller->initialize(nullptr);
	controller->setParamNormalized(kPanParamId,
	                               controller->plainParamToNormalized(kPanParamId, degrees));
	std::vector<unsigned char> png;
	{
		auto view = Steinberg::owned(
		    static_cast<NxVeloraEditorView*>(controller->createView(ViewType::kEditor)));
		// No parent window: the controls are built, the frame stays offscreen.
		view->open(nullptr, PlatformType::kDefaultNative);
		CFrame* frame = view->getFrame();
		if (auto context = COffscreenContext::create(frame->getViewSize().getSize()))
		{
			context->beginDraw();
			frame->drawRect(context, frame->getViewSize());
			context->endDraw();
			auto buffer = getPlatformFactory().createBitmapMemoryPNGRepresentation(
			    context->getBitmap()->getPlatformBitmap());
			png.assign(buffer.begin(), buffer.end());
		}
		view->close();
	}
	controller->terminate();
	return png;
}

} // namespace Vst
} // namespace Steinberg
