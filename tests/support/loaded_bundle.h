// The built bundle, loaded as a host loads it: through the SDK's hosting
// module on the bundle path (VELORA_BUNDLE), with no link to the plug-in's
// own classes. Processor and controller come from the SDK's plug provider.
#pragma once

#include "pluginterfaces/vst/ivstaudioprocessor.h"
#include "pluginterfaces/vst/ivstunits.h"
#include "public.sdk/source/vst/hosting/hostclasses.h"
#include "public.sdk/source/vst/hosting/module.h"
#include "public.sdk/source/vst/hosting/plugprovider.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace velora_test {

using namespace Steinberg;
using namespace Steinberg::Vst;

inline std::string bundlePath()
{
	const char* path = std::getenv("VELORA_BUNDLE");
	return path ? path : "";
}

// One loaded module per test binary, as a host keeps it for its session.
inline VST3::Hosting::Module::Ptr loadedModule()
{
	static VST3::Hosting::Module::Ptr module = [] {
		std::string error;
		auto m = VST3::Hosting::Module::create(bundlePath(), error);
		if (!m)
			ADD_FAILURE() << "cannot load " << bundlePath() << ": " << error;
		return m;
	}();
	return module;
}

inline VST3::Hosting::ClassInfo classInfo(const std::string& category)
{
	for (const auto& info : loadedModule()->getFactory().classInfos())
		if (info.category() == category)
			return info;
	ADD_FAILURE() << "no class of category " << category;
	return {};
}

// The host application object, one for the whole session as a host keeps it.
inline HostApplication* hostApplication()
{
	static IPtr<HostApplication> host = owned(new HostApplication);
	return host;
}

// A processor and controller pair made and connected by the SDK's plug provider.
struct PlugPair
{
	PlugPair()
	{
		PluginContextFactory::instance().setPluginContext(hostApplication());
		provider =
		    owned(new PlugProvider(loadedModule()->getFactory(), classInfo(kVstAudioEffectClass)));
		if (!provider->initialize())
			ADD_FAILURE() << "plug provider could not initialise the plug-in";
		component = owned(provider->getComponent());
		controller = owned(provider->getController());
	}

	IPtr<PlugProvider> provider;
	IPtr<IComponent> component;
	IPtr<IEditController> controller;
};

} // namespace velora_test
