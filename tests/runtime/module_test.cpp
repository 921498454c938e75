// Modules loaded through the real dynamic loader: the test module, a missing file, a
// library that is no module, and the plug-in bundle's library.
#include "runtime/test_probe.h"

#include "osi/runtime/modregistry.h"
#include "osi/runtime/module.h"
#include "osi/runtime/protectedregistry.h"
#include "osi/runtime/yieldhandler.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

const char* const testModule = VELORA_TEST_MODULE;

std::string absolute(const char* path)
{
	char resolved[PATH_MAX];
	return realpath(path, resolved) ? resolved : "";
}

bool isLoaded(const char* path)
{
	void* handle = dlopen(path, RTLD_LAZY | RTLD_NOLOAD);
	if (handle)
		dlclose(handle);
	return handle != nullptr;
}

size_t occurrences(const std::string& text, const std::string& part)
{
	size_t count = 0;
	for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
		++count;
	return count;
}

// A probe created in the module; released when the test is done with it.
struct ProbeOf
{
	explicit ProbeOf(const MdlModule& module)
	: probe(static_cast<VeloraTestProbe*>(module.create("VeloraTestProbe", 1)))
	{}
	~ProbeOf() { mdlRelease(probe); }
	VeloraTestProbe* operator->() const { return probe; }
	VeloraTestProbe* probe;
};

TEST(Module, OnePathSharesOneInstanceAndTheLastReleaseClosesTheLibrary)
{
	testing::internal::CaptureStdout();
	{
		OsiModule first(testModule);
		OsiModule second(testModule);
		ASSERT_TRUE(first.isValid() && second.isValid());
		EXPECT_EQ(first.moduleInstance(), second.moduleInstance());
		EXPECT_EQ(first.moduleInstance()->referenceCount(), 2);
		EXPECT_EQ(first.moduleName(), absolute(testModule));
		EXPECT_TRUE(first.free());
		EXPECT_FALSE(first.isValid());
		EXPECT_FALSE(first.free());
		EXPECT_EQ(second.moduleInstance()->referenceCount(), 1);
		ProbeOf probe(second);
		ASSERT_NE(probe.probe, nullptr);
		EXPECT_EQ(probe->registeredPath(), absolute(testModule));
		const std::string output = testing::internal::GetCapturedStdout();
		const std::string loaded = "Module loaded. Module path is\n " + std::string(testModule) +
		                           "\nAbsolute path is " + absolute(testModule) + "\n";
		EXPECT_EQ(occurrences(output, loaded), 2u) << output;
		EXPECT_EQ(occurrences(output, testModuleClosingText), 0u)
		    << "the second opening or the first release closed the library";
		testing::internal::CaptureStdout();
	}
	const std::string output = testing::internal::GetCapturedStdout();
	EXPECT_EQ(occurrences(output, testModuleClosingText), 1u) << output;
	EXPECT_FALSE(isLoaded(testModule)) << "the library stayed open";
}

TEST(Module, ARejectedPathPrintsBothFailureMessagesAndALibraryWithoutEntriesNone)
{
	const std::string path = "/nonexistent/velora.so";
	testing::internal::CaptureStdout();
	OsiModule module(path.c_str());
	const std::string output = testing::internal::GetCapturedStdout();
	EXPECT_EQ(output.find("dlopen() of " + path + " failed: "), 0u) << output;
	EXPECT_NE(output.find("\nModule load failed. Module path is\n " + path + "\n"),
	          std::string::npos)
	    << output;
	EXPECT_FALSE(module.isValid());
	EXPECT_EQ(module.create("VeloraTestProbe", 1), nullptr);
	testing::internal::CaptureStdout();
	EXPECT_FALSE(OsiModule("libm.so.6").isValid()) << "a library without the entries";
	EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

// A class that only the test program (the parent) registers.
class ParentMade : public MdlInterface
{
public:
	const char* className() const override { return "ParentOnly"; }
	int classVersion() const override { return 1; }
};

int yields = 0;

void countYield()
{
	++yields;
}

// Interface objects of the child: its registry, and a handler of its yield procedure.
TEST(Module, TheChildCreatesThroughItsParentAndIsReachedThroughInterfaceObjects)
{
	OsiClassOf<ParentMade> parentOnly("ParentOnly", 1);
	OsiModule module(testModule);
	auto* registry = static_cast<OsiProtectedClassRegistry*>(
	    static_cast<MdlInterface*>(module.create("MdlClassRegistry", 1)));
	ASSERT_NE(registry, nullptr);
	auto* probe = static_cast<VeloraTestProbe*>(registry->create("VeloraTestProbe", 1));
	ASSERT_NE(probe, nullptr);
	EXPECT_TRUE(probe->hasParent());
	auto* object = static_cast<MdlInterface*>(probe->createOnParent("ParentOnly", 1));
	ASSERT_NE(object, nullptr);
	EXPECT_STREQ(object->className(), "ParentOnly");
	mdlRelease(object);
	EXPECT_EQ(probe->createOnParent("ParentOnly", 2), nullptr);
	// The parent sees none of the child's classes in its own registry.
	EXPECT_EQ(OsiClassRegistry::create("VeloraTestProbe", 1), nullptr);
	const MdlClass* found = registry->forAllNamedClassesDo(
	    "VeloraTestProbe", [](const MdlClass*, void*) { return true; }, nullptr);
	ASSERT_NE(found, nullptr);
	EXPECT_EQ(found->classVersion(), 1);
	int classes = 0;
	registry->forAllClassesDo(
	    [](const MdlClass*, void* n) { return ++*static_cast<int*>(n), false; }, &classes);
	EXPECT_EQ(classes, 4); // the probe, the closing notice, the registry, the yield handler
	mdlRelease(registry);

	auto* handler = static_cast<OsiYieldHandler*>(
	    static_cast<MdlInterface*>(module.create("MdlYieldHandler", 1)));
	ASSERT_NE(handler, nullptr);
	EXPECT_EQ(module.moduleInstance()->referenceCount(), 2) << "the handler holds the instance";
	yields = 0;
	handler->setYieldProc(countYield);
	probe->callYield();
	EXPECT_EQ(yields, 1);
	osiYield(); // this program's own procedure is another one, not set
	handler->setYieldProc(nullptr);
	probe->callYield();
	EXPECT_EQ(yields, 1);
	mdlRelease(handler);
	EXPECT_EQ(module.moduleInstance()->referenceCount(), 1);
	mdlRelease(probe);
}

TEST(Module, LocalHandlersStandForTheRunningModule)
{
	OsiClassOf<ParentMade> parentOnly("ParentOnly", 1);
	MdlLocalHandlers handlers;
	getLocalHandlers(&handlers);
	getLocalHandlers(nullptr);
	{
		OsiModule self(nullptr, &handlers);
		ASSERT_TRUE(self.isValid());
		EXPECT_TRUE(self.moduleInstance()->isLocal());
		EXPECT_STREQ(self.moduleName(), "");
		auto* object = static_cast<MdlInterface*>(self.create("ParentOnly", 1));
		ASSERT_NE(object, nullptr);
		mdlRelease(object);
		EXPECT_EQ(parentModuleInstance(), self.moduleInstance());
		OsiModule again(nullptr, &handlers);
		EXPECT_EQ(again.moduleInstance(), self.moduleInstance());
	}
	EXPECT_EQ(parentModuleInstance(), nullptr) << "a parent instance outlived its release";
	EXPECT_FALSE(OsiParentModule().isValid());
	EXPECT_EQ(OsiParentModule().create("ParentOnly", 1), nullptr);
}

TEST(Module, ThePlugInBundleIsAFrameworkModule)
{
	const char* bundle = std::getenv("VELORA_BUNDLE_SO");
	if (!bundle || !*bundle)
		GTEST_SKIP() << "no plug-in bundle in this build";
	testing::internal::CaptureStdout();
	OsiModule module(bundle);
	testing::internal::GetCapturedStdout();
	ASSERT_TRUE(module.isValid());
	EXPECT_EQ(module.moduleName(), absolute(bundle));
	for (const char* name : {"MdlClassRegistry", "MdlYieldHandler"})
	{
		auto* object = static_cast<MdlInterface*>(module.create(name, 1));
		ASSERT_NE(object, nullptr) << name;
		mdlRelease(object);
	}
}

} // namespace
