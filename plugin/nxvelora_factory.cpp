// The module's entry points and its class factory with the three classes.
#include "nxvelora.h"
#include "nxvelora_controller.h"
#include "nxvelora_processor.h"
#include "pan_vstcommon.h"

#include "public.sdk/source/main/pluginfactory.h"

namespace Steinberg {

namespace {
using Vst::NxVeloraController;
using Vst::NxVeloraProcessor;
using Vst::NxVeloraTestFactory;

constexpr int32 kAnyNumberOfInstances = 0x7FFFFFFF;

const PFactoryInfo& factoryInfo()
{
	static const PFactoryInfo info("Torvik Audio", "https://www.torvik-audio.example",
	                               "mailto:support@torvik-audio.example", PFactoryInfo::kUnicode);
	return info;
}

// One class-info record per row of the class table, each built once.
const PClassInfo2& processorInfo()
{
	static TUID uid;
	static const PClassInfo2 info = [] {
		Vst::NxVeloraProcessorUID.toTUID(uid);
		return PClassInfo2(uid, kAnyNumberOfInstances, kVstAudioEffectClass, "Torvik Velora",
		                   Vst::kDistributable, "Fx|Pan", nullptr, Vst::kVeloraVersion,
		                   Vst::kVeloraSdkVersion);
	}();
	return info;
}

const PClassInfo2& controllerInfo()
{
	static TUID uid;
	static const PClassInfo2 info = [] {
		Vst::NxVeloraControllerUID.toTUID(uid);
		return PClassInfo2(uid, kAnyNumberOfInstances, kVstComponentControllerClass,
		                   "Torvik Velora Controller", 0, "", nullptr, Vst::kVeloraVersion,
		                   Vst::kVeloraSdkVersion);
	}();
	return info;
}

const PClassInfo2& testFactoryInfo()
{
	static TUID uid;
	static const PClassInfo2 info = [] {
		NxVeloraTestFactory::cid.toTUID(uid);
		return PClassInfo2(uid, kAnyNumberOfInstances, kTestClass, "Torvik Velora Test Factory", 0,
		                   "", nullptr, "", "");
	}();
	return info;
}
} // namespace

} // namespace Steinberg

// The SDK's factory pointer; the factory clears it when its last reference goes.
using Steinberg::gPluginFactory;

SMTG_EXPORT_SYMBOL Steinberg::IPluginFactory* PLUGIN_API GetPluginFactory()
{
	using namespace Steinberg;
	if (gPluginFactory)
	{
		gPluginFactory->addRef();
		return gPluginFactory;
	}
	gPluginFactory = new CPluginFactory(factoryInfo());
	gPluginFactory->registerClass(&processorInfo(), NxVeloraProcessor::createInstance);
	gPluginFactory->registerClass(&controllerInfo(), NxVeloraController::createInstance);
	gPluginFactory->registerClass(&testFactoryInfo(), NxVeloraTestFactory::createInstance);
	return gPluginFactory;
}
