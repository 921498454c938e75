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

// One loaded module and one host application per test binary, as a host
// keeps them for its session.
inline VST3::Hosting::Module::Ptr loadedModule()
{
	static std::string error;
	static const auto module = VST3::Hosting::Module::create(bundlePath(), error);
	EXPECT_TRUE(module) << "cannot load " << bundlePath() << ": " << error;
	return module;
}

// A processor and controller pair of the audio class, made and connected by
// the SDK's plug provider.
struct PlugPair
{
	PlugPair()
	{
		static IPtr<HostApplication> host = owned(new HostApplication);
		PluginContextFactory::instance().setPluginContext(host);
		const auto classes = loadedModule()->getFactory().classInfos();
		provider = owned(new PlugProvider(loadedModule()->getFactory(), classes.at(0)));
		EXPECT_TRUE(provider->initialize()) << "plug provider could not initialise the plug-in";
		component = owned(provider->getComponent());
		controller = owned(provider->getController());
	}

	IPtr<PlugProvider> provider;
	IPtr<IComponent> component;
	IPtr<IEditController> controller;
};

} // namespace velora_test
