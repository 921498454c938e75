// The edit controller's views and list, and the self-test factory with the
// contexts a test host may hand it.
#include "nxvelora.h"
#include "nxvelora_controller.h"
#include "nxvelora_processor.h"

#include "public.sdk/source/vst/hosting/hostclasses.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Steinberg {
// The SDK defines the other test interface IDs; a test host defines this one.
DEF_CLASS_IID(ITestResult)
} // namespace Steinberg

namespace velora_test {
namespace {

using namespace Steinberg;
using namespace Steinberg::Vst;

struct Controller : ::testing::Test
{
	Controller() { controller->initialize(nullptr); }
	~Controller() override { controller->terminate(); }
	IPtr<NxVeloraController> controller = owned(new NxVeloraController);
};

TEST_F(Controller, OnlyTheExactNameEditorMakesAView)
{
	EXPECT_EQ(controller->createView("Editor"), nullptr);
	EXPECT_EQ(controller->createView(""), nullptr);
	EXPECT_EQ(controller->createView("editor2"), nullptr);
	EXPECT_EQ(controller->createView(nullptr), nullptr);
}

TEST_F(Controller, ViewsOfAnotherClassAreNotListed)
{
	auto other = owned(new EditorView(controller));
	controller->editorAttached(other);
	EXPECT_TRUE(controller->dependentViews().empty());
	controller->editorRemoved(other);
	EXPECT_TRUE(controller->dependentViews().empty());
}

TEST_F(Controller, TerminateEmptiesTheViewList)
{
	// The list holds concrete editor pointers without owning them; the
	// pointers here are never dereferenced.
	auto* a = reinterpret_cast<NxVeloraEditorView*>(0x10);
	auto* b = reinterpret_cast<NxVeloraEditorView*>(0x20);
	controller->addDependentView(a);
	controller->addDependentView(b);
	controller->addDependentView(a);
	controller->removeDependentView(a);
	ASSERT_EQ(controller->dependentViews().size(), 2u);
	EXPECT_EQ(controller->dependentViews()[0], b);
	EXPECT_EQ(controller->dependentViews()[1], a);
	controller->removeDependentView(reinterpret_cast<NxVeloraEditorView*>(0x30));
	EXPECT_EQ(controller->dependentViews().size(), 2u);
	controller->terminate();
	EXPECT_TRUE(controller->dependentViews().empty());
	controller->initialize(nullptr);
}

// --- the self-test -------------------------------------------------------

class RecordingSuite : public ITestSuite
{
public:
	RecordingSuite(){FUNKNOWN_CTOR} tresult PLUGIN_API addTest(FIDString name, ITest* test) override
	{
		names.push_back(name);
		tests.push_back(test);
		return kResultOk;
	}
	tresult PLUGIN_API addTestSuite(FIDString, ITestSuite*) override { return kNotImplemented; }
	tresult PLUGIN_API setEnvironment(ITest*) override { return kNotImplemented; }
	std::vector<std::string> names;
	std::vector<IPtr<ITest>> tests;
	DECLARE_FUNKNOWN_METHODS
};
IMPLEMENT_FUNKNOWN_METHODS(RecordingSuite, ITestSuite, ITestSuite::iid)

class RecordingResult : public ITestResult
{
public:
	RecordingResult() { FUNKNOWN_CTOR }
	void PLUGIN_API addErrorMessage(const tchar* msg) override { errors.push_back(msg); }
	void PLUGIN_API addMessage(const tchar* msg) override { messages.push_back(msg); }
	std::vector<std::u16string> errors;
	std::vector<std::u16string> messages;
	DECLARE_FUNKNOWN_METHODS
};
IMPLEMENT_FUNKNOWN_METHODS(RecordingResult, ITestResult, ITestResult::iid)

// A provider over given component and controller objects (either may be null).
class FakeProvider : public ITestPlugProvider
{
public:
	FakeProvider(IComponent* component, IEditController* controller)
	: component(component),
	  controller(controller){FUNKNOWN_CTOR} IComponent * PLUGIN_API getComponent() override
	{
		if (component)
			component->addRef();
		return component;
	}
	IEditController* PLUGIN_API getController() override
	{
		if (controller)
			controller->addRef();
		return controller;
	}
	tresult PLUGIN_API releasePlugIn(IComponent* c, IEditController* e) override
	{
		if (c)
			c->release();
		if (e)
			e->release();
		return kResultOk;
	}
	tresult PLUGIN_API getSubCategories(IStringResult&) const override { return kNotImplemented; }
	tresult PLUGIN_API getComponentUID(FUID&) const override { return kNotImplemented; }

	IPtr<IComponent> component;
	IPtr<IEditController> controller;
	DECLARE_FUNKNOWN_METHODS
};
IMPLEMENT_FUNKNOWN_METHODS(FakeProvider, ITestPlugProvider, ITestPlugProvider::iid)

struct SelfTest : ::testing::Test
{
	IPtr<ITestFactory> factory =
	    owned(static_cast<ITestFactory*>(NxVeloraTestFactory::createInstance(nullptr)));
	IPtr<RecordingSuite> suite = owned(new RecordingSuite);
	IPtr<IComponent> processor =
	    owned(FUnknownPtr<IComponent>(owned(NxVeloraProcessor::createInstance(nullptr))).take());
	IPtr<IEditController> editController = owned(
	    FUnknownPtr<IEditController>(owned(NxVeloraController::createInstance(nullptr))).take());
};

TEST_F(SelfTest, AContextWithoutAProviderAddsNothing)
{
	auto host = owned(new HostApplication);
	for (FUnknown* context : {static_cast<FUnknown*>(nullptr), static_cast<FUnknown*>(host.get())})
	{
		EXPECT_EQ(factory->createTests(context, suite), kResultOk);
		EXPECT_TRUE(suite->names.empty());
	}
}

// What the one test reports for the halves a provider hands out.
TEST_F(SelfTest, ReportsEachHalf)
{
	struct Halves
	{
		IComponent* component;
		IEditController* controller;
		std::vector<std::u16string> errors;
		std::vector<std::u16string> messages;
	};
	const Halves rows[] = {
	    {processor, editController, {}, {u"Correct IEditController", u"Correct IComponent"}},
	    {processor, nullptr, {u"Unknown IEditController"}, {u"Correct IComponent"}},
	    {nullptr, nullptr, {u"Unknown IEditController", u"Unknown IComponent"}, {}},
	};
	for (const Halves& row : rows)
	{
		suite = owned(new RecordingSuite);
		auto provider = owned(new FakeProvider(row.component, row.controller));
		ASSERT_EQ(factory->createTests(provider, suite), kResultOk);
		ASSERT_EQ(suite->names, std::vector<std::string>{"NxVeloraTest"});
		ITest* test = suite->tests[0];
		EXPECT_EQ(std::u16string(test->getDescription()), u"Torvik Velora Test");
		EXPECT_TRUE(test->setup());
		RecordingResult result;
		EXPECT_EQ(test->run(&result), row.errors.empty());
		EXPECT_TRUE(test->teardown());
		EXPECT_EQ(result.errors, row.errors);
		EXPECT_EQ(result.messages, row.messages);
	}
}

} // namespace
} // namespace velora_test
