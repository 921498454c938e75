// The module's self-test: a test factory that a plug-in test host asks for
// tests, and its one test, which checks the kinds of the plug-in's halves.
#pragma once

#include "base/source/fobject.h"
#include "pan_vstcommon.h"
#include "pluginterfaces/test/itest.h"
#include "pluginterfaces/vst/ivsttestplugprovider.h"

namespace Steinberg {
namespace Vst {

class NxVeloraTestFactory : public ITestFactory, public FObject
{
public:
	// The class identifier, kept with the module's other two.
	static inline const FUID& cid = NxVeloraTestFactoryUID;
	static FUnknown* createInstance(void*);

	tresult PLUGIN_API createTests(FUnknown* context, ITestSuite* parentSuite) override;

	OBJ_METHODS(NxVeloraTestFactory, FObject)
	REFCOUNT_METHODS(FObject)
	DEFINE_INTERFACES
	DEF_INTERFACE(ITestFactory)
	END_DEFINE_INTERFACES(FObject)
};

class NxVeloraTest : public ITest, public FObject
{
public:
	// The provider is not counted: the test suite that runs the test keeps it alive.
	explicit NxVeloraTest(ITestPlugProvider* provider) : provider(provider) {}

	bool PLUGIN_API setup() override { return true; }
	bool PLUGIN_API run(ITestResult* testResult) override;
	bool PLUGIN_API teardown() override { return true; }
	const tchar* PLUGIN_API getDescription() override;

	OBJ_METHODS(NxVeloraTest, FObject)
	REFCOUNT_METHODS(FObject)
	DEFINE_INTERFACES
	DEF_INTERFACE(ITest)
	END_DEFINE_INTERFACES(FObject)

private:
	ITestPlugProvider* provider;
};

} // namespace Vst
} // namespace Steinberg
