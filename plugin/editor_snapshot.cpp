#include "editor_snapshot.h"

#include "nxvelora_controller.h"
#include "nxvelora_editor.h"
#include "pan_vstcommon.h"

#include "public.sdk/source/main/moduleinit.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/cvstguitimer.h"
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

namespace {
constexpr VSTGUI::CCoord kPanelGap = 8;

void hostSets(NxVeloraController& controller, double degrees)
{
	controller.setParamNormalized(kPanParamId,
	                              controller.plainParamToNormalized(kPanParamId, degrees));
}
} // namespace

std::vector<unsigned char> renderEditorPng(const std::vector<double>& degrees)
{
	using namespace VSTGUI;
	if (degrees.empty())
		return {};
	auto controller = Steinberg::owned(new NxVeloraController);
	controller->initialize(nullptr);
	hostSets(*controller, degrees.front());
	std::vector<unsigned char> png;
	{
		auto view = Steinberg::owned(
		    static_cast<NxVeloraEditorView*>(controller->createView(ViewType::kEditor)));
		// No parent window: the controls are built, the frame stays offscreen.
		view->open(nullptr, PlatformType::kDefaultNative);
		CFrame* frame = view->getFrame();
		const CPoint panel = frame->getViewSize().getSize();
		const auto count = static_cast<CCoord>(degrees.size());
		const CPoint size(count * panel.x + (count - 1) * kPanelGap, panel.y);
		if (auto context = COffscreenContext::create(size))
		{
			context->beginDraw();
			context->setFillColor(kWhiteCColor);
			context->drawRect(CRect(CPoint(0, 0), size), kDrawFilled);
			for (size_t i = 0; i < degrees.size(); ++i)
			{
				if (i > 0)
				{
					hostSets(*controller, degrees[i]);
					view->notify(nullptr, CVSTGUITimer::kMsgTimer);
				}
				CDrawContext::Transform shift(
				    *context, CGraphicsTransform().translate(i * (panel.x + kPanelGap), 0));
				frame->drawRect(context, frame->getViewSize());
			}
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
