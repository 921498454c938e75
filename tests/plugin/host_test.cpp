// The built bundle as a host sees it: factory, classes, parameter info and a
// processed block.
#include "support/loaded_bundle.h"

#include "pluginterfaces/vst/ivstaudioprocessor.h"
#include "public.sdk/source/common/memorystream.h"
#include "public.sdk/source/vst/hosting/parameterchanges.h"
#include "public.sdk/source/vst/hosting/processdata.h"

#include <cstring>
#include <dlfcn.h>
#include <unistd.h>

#include <iterator>
#include <vector>

namespace velora_test {
namespace {

std::string soPath()
{
	return bundlePath() + "/Contents/x86_64-linux/TorvikVelora.so";
}

TEST(Bundle, HasTheLinuxLayout)
{
	auto module = loadedModule();
	ASSERT_TRUE(module);
	EXPECT_EQ(module->getName(), "TorvikVelora.vst3");
	EXPECT_EQ(access(soPath().c_str(), R_OK), 0) << soPath();
	for (const char* image : {"background.png", "knob.png", "moduleinfo.json"})
	{
		const std::string path = bundlePath() + "/Contents/Resources/" + image;
		EXPECT_EQ(access(path.c_str(), R_OK), 0) << path;
	}
	EXPECT_TRUE(VST3::Hosting::Module::getModuleInfoPath(bundlePath()));
}

TEST(Bundle, FactoryInfo)
{
	const auto info = loadedModule()->getFactory().info();
	EXPECT_EQ(info.vendor(), "Torvik Audio");
	EXPECT_EQ(info.email().rfind("mailto:", 0), 0u);
	EXPECT_FALSE(info.url().empty());
	EXPECT_EQ(info.flags(), 16);
}

TEST(Bundle, ListsExactlyTheThreeClassesInOrder)
{
	struct Class
	{
		const char* category;
		const char* name;
		uint32 flags;
		const char* subCategories;
		const char* version;
		const char* sdkVersion;
		const char* id;
	};
	const Class expected[] = {
	    {"Audio Module Class", "Torvik Velora", 1, "Fx|Pan", "1.0.1.1", "VST 3.6.0",
	     "C356A247A696417FBA6DB95A1B8DDC69"},
	    {"Component Controller Class", "Torvik Velora Controller", 0, "", "1.0.1.1", "VST 3.6.0",
	     "79E776E5ECD64C06BB7F0A4769541053"},
	    {"Test Class", "Torvik Velora Test Factory", 0, "", "", "",
	     "74731DBC99E64A0091362418E7301087"},
	};
	const auto classes = loadedModule()->getFactory().classInfos();
	ASSERT_EQ(classes.size(), std::size(expected));
	for (size_t i = 0; i < classes.size(); ++i)
	{
		const auto& c = classes[i];
		const Class& e = expected[i];
		EXPECT_EQ(c.category(), e.category);
		EXPECT_EQ(c.name(), e.name);
		EXPECT_EQ(c.classFlags(), e.flags) << e.name;
		EXPECT_EQ(c.subCategoriesString(), e.subCategories) << e.name;
		EXPECT_EQ(c.version(), e.version) << e.name;
		EXPECT_EQ(c.sdkVersion(), e.sdkVersion) << e.name;
		EXPECT_EQ(c.ID().toString(false), e.id) << e.name;
		EXPECT_EQ(c.cardinality(), 0x7FFFFFFF) << e.name;
	}
}

TEST(Bundle, GetPluginFactoryHandsOutOneFactoryWithAReferenceEach)
{
	ASSERT_TRUE(loadedModule());
	void* so = dlopen(soPath().c_str(), RTLD_LAZY | RTLD_NOLOAD);
	ASSERT_NE(so, nullptr);
	using GetFactory = IPluginFactory* (*)();
	auto getFactory = reinterpret_cast<GetFactory>(dlsym(so, "GetPluginFactory"));
	ASSERT_NE(getFactory, nullptr);

	IPluginFactory* first = getFactory();
	const uint32 countAfterFirst = first->addRef();
	first->release();
	IPluginFactory* second = getFactory();
	EXPECT_EQ(second, first);
	EXPECT_EQ(second->addRef(), countAfterFirst + 1);
	second->release();
	second->release();
	first->release();
	dlclose(so);
}

TEST(Bundle, ControllerReportsThePanParameter)
{
	PlugPair plug;
	ASSERT_TRUE(plug.controller);
	ASSERT_EQ(plug.controller->getParameterCount(), 1);
	ParameterInfo info{};
	ASSERT_EQ(plug.controller->getParameterInfo(0, info), kResultTrue);
	EXPECT_EQ(info.id, 100u);
	EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(info.title)), u"Pan");
	EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(info.units)), u"");
	EXPECT_EQ(info.stepCount, 0);
	EXPECT_EQ(info.defaultNormalizedValue, 0.5);
	EXPECT_EQ(info.flags, ParameterInfo::kCanAutomate | ParameterInfo::kIsList);
	EXPECT_EQ(info.unitId, kRootUnitId);
	EXPECT_DOUBLE_EQ(plug.controller->normalizedParamToPlain(100, 0.0), -90.0);
	EXPECT_DOUBLE_EQ(plug.controller->normalizedParamToPlain(100, 1.0), 90.0);
}

// One block through the loaded plug-in, at the centre's published gain (the
// in-process tests check every other angle).
TEST(Bundle, ProcessesABlockAsThePanLawSays)
{
	PlugPair plug;
	FUnknownPtr<IAudioProcessor> audio(plug.component);
	ASSERT_TRUE(audio);
	constexpr int32 kBlock = 128;
	SpeakerArrangement in = SpeakerArr::kMono, out = SpeakerArr::kStereo;
	ASSERT_EQ(audio->setBusArrangements(&in, 1, &out, 1), kResultTrue);
	ProcessSetup setup{kRealtime, kSample32, kBlock, 44100.0};
	ASSERT_EQ(audio->setupProcessing(setup), kResultOk);
	ASSERT_EQ(plug.component->setActive(true), kResultOk);
	audio->setProcessing(true);

	HostProcessData data;
	ASSERT_TRUE(data.prepare(*plug.component, kBlock, kSample32));
	data.numSamples = kBlock;
	for (int32 i = 0; i < kBlock; ++i)
		data.inputs[0].channelBuffers32[0][i] = 0.5f * static_cast<float>(i % 9 - 4) / 4.0f;
	const float* input = data.inputs[0].channelBuffers32[0];
	const float* left = data.outputs[0].channelBuffers32[0];
	const float* right = data.outputs[0].channelBuffers32[1];

	audio->process(data);
	for (int32 i = 0; i < kBlock; ++i)
	{
		EXPECT_EQ(left[i], static_cast<float>(input[i] * 0.56811975));
		EXPECT_EQ(right[i], static_cast<float>(input[i] * 0.56811975));
	}

	audio->setProcessing(false);
	plug.component->setActive(false);
	data.unprepare();
}

// A host saving a project and opening it again: the processor's state goes
// into fresh instances of both halves.
TEST(Bundle, StateSurvivesFreshInstances)
{
	auto saved = owned(new MemoryStream);
	{
		PlugPair plug;
		FUnknownPtr<IAudioProcessor> audio(plug.component);
		ProcessSetup setup{kRealtime, kSample32, 32, 48000.0};
		audio->setupProcessing(setup);
		plug.component->setActive(true);
		HostProcessData data;
		data.prepare(*plug.component, 32, kSample32);
		ParameterChanges changes(1);
		int32 index = 0;
		changes.addParameterData(100, index)->addPoint(0, 0.8, index);
		data.inputParameterChanges = &changes;
		data.numSamples = 32;
		audio->process(data);
		plug.component->setActive(false);
		data.unprepare();
		ASSERT_EQ(plug.component->getState(saved), kResultOk);
	}
	ASSERT_EQ(saved->getSize(), 110);

	PlugPair fresh;
	saved->seek(0, IBStream::kIBSeekSet, nullptr);
	ASSERT_EQ(fresh.component->setState(saved), kResultOk);
	saved->seek(0, IBStream::kIBSeekSet, nullptr);
	ASSERT_EQ(fresh.controller->setComponentState(saved), kResultOk);
	EXPECT_EQ(fresh.controller->getParamNormalized(100), 0.8);

	auto again = owned(new MemoryStream);
	ASSERT_EQ(fresh.component->getState(again), kResultOk);
	ASSERT_EQ(again->getSize(), saved->getSize());
	EXPECT_EQ(std::memcmp(again->getData(), saved->getData(), 110), 0);
}

} // namespace
} // namespace velora_test
