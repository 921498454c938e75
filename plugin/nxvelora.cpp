#include "nxvelora.h"

#include "public.sdk/source/vst/vstaudioeffect.h"
#include "public.sdk/source/vst/vsteditcontroller.h"

#include <string>

namespace Steinberg {
namespace Vst {

FUnknown* NxVeloraTestFactory::createInstance(void*)
{
	return static_cast<ITestFactory*>(new NxVeloraTestFactory);
}

tresult PLUGIN_API NxVeloraTestFactory::createTests(FUnknown* context, ITestSuite* parentSuite)
{
	if (!context)
		return kResultOk;
	FUnknownPtr<ITestPlugProvider> provider(context);
	if (!provider || !parentSuite)
		return kResultOk;
	auto test = owned(new NxVeloraTest(provider));
	parentSuite->addTest("NxVeloraTest", test);
	return kResultOk;
}

namespace {
// True if the object behind unknown is an SDK object of class C or derived from it.
template <typename C> bool isKindOf(FUnknown* unknown)
{
	return unknown && FCast<C>(unknown) != nullptr;
}
} // namespace

bool PLUGIN_API NxVeloraTest::run(ITestResult* testResult)
{
	IEditController* controller = provider->getController();
	const bool controllerOk = isKindOf<EditController>(controller);
	if (controllerOk)
		testResult->addMessage(STR("Correct IEditController"));
	else
		testResult->addErrorMessage(STR("Unknown IEditController"));
	provider->releasePlugIn(nullptr, controller);

	IComponent* component = provider->getComponent();
	const bool componentOk = isKindOf<AudioEffect>(component);
	if (componentOk)
		testResult->addMessage(STR("Correct IComponent"));
	else
		testResult->addErrorMessage(STR("Unknown IComponent"));
	provider->releasePlugIn(component, nullptr);

	return controllerOk && componentOk;
}

const tchar* PLUGIN_API NxVeloraTest::getDescription()
{
	static const std::basic_string<tchar> description(STR("Torvik Velora Test"));
	return description.c_str();
}

} // namespace Vst
} // namespace Steinberg
