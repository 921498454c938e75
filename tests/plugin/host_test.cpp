// The built bundle as a host sees it: layout, factory, classes and the
// parameter's info. The SDK's validator processes, saves and restores it.
#include "support/loaded_bundle.h"

#include <dlfcn.h>
#include <unistd.h>

#include <iterator>

namespace velora_test {
namespace {

TEST(Bundle, HasTheLinuxLayoutAndFactoryInfo)
{
	ASSERT_TRUE(loadedModule());
	EXPECT_EQ(loadedModule()->getName(), "TorvikVelora.vst3");
	for (const char* file : {"x86_64-linux/TorvikVelora.so", "Resources/background.png",
	                         "Resources/knob.png", "Resources/moduleinfo.json"})
		EXPECT_EQ(access((bundlePath() + "/Contents/" + file).c_str(), R_OK), 0) << file;
	const auto info = loadedModule()->getFactory().info();
	EXPECT_EQ(info.vendor(), "Torvik Audio");
	EXPECT_EQ(info.email().rfind("mailto:", 0), 0u);
	EXPECT_FALSE(info.url().empty());
	EXPECT_EQ(info.flags(), 16);
}

TEST(Bundle, ListsExactlyTheThreeClassesInOrder)
{
	// Category, name, flags, subcategories, version, SDK version, identifier.
	const std::vector<std::string> expected[] = {
	    {"Audio Module Class", "Torvik Velora", "1", "Fx|Pan", "1.0.1.1", "VST 3.6.0",
	     "C356A247A696417FBA6DB95A1B8DDC69"},
	    {"Component Controller Class", "Torvik Velora Controller", "0", "", "1.0.1.1", "VST 3.6.0",
	     "79E776E5ECD64C06BB7F0A4769541053"},
	    {"Test Class", "Torvik Velora Test Factory", "0", "", "", "",
	     "74731DBC99E64A0091362418E7301087"},
	};
	const auto classes = loadedModule()->getFactory().classInfos();
	ASSERT_EQ(classes.size(), std::size(expected));
	for (size_t i = 0; i < classes.size(); ++i)
	{
		const auto& c = classes[i];
		EXPECT_EQ((std::vector<std::string>{c.category(), c.name(), std::to_string(c.classFlags()),
		                                    c.subCategoriesString(), c.version(), c.sdkVersion(),
		                                    c.ID().toString(false)}),
		          expected[i]);
		EXPECT_EQ(c.cardinality(), 0x7FFFFFFF) << c.name();
	}
}

TEST(Bundle, GetPluginFactoryHandsOutOneFactoryWithAReferenceEach)
{
	ASSERT_TRUE(loadedModule());
	void* so = dlopen((bundlePath() + "/Contents/x86_64-linux/TorvikVelora.so").c_str(),
	                  RTLD_LAZY | RTLD_NOLOAD);
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

} // namespace
} // namespace velora_test
