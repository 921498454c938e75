// A small framework module for the modules test: it registers a probe class
// and answers the closing notice.
#include "runtime/test_probe.h"

#include "osi/runtime/modregistry.h"
#include "osi/runtime/module.h"
#include "osi/runtime/yieldhandler.h"

#include <cstdio>

namespace {

class Probe : public VeloraTestProbe
{
public:
	const char* className() const override { return "VeloraTestProbe"; }
	int classVersion() const override { return 1; }
	void* createOnParent(const char* name, int version) override
	{
		return OsiParentModule().create(name, version);
	}
	bool hasParent() override { return OsiParentModule().isValid(); }
	const char* registeredPath() override { return modulePath(); }
	void callYield() override { osiYield(); }
};

// Registered under the notice's own name and version, so that the notice
// reaches this descriptor's create().
class ClosingNotice : public OsiClass
{
public:
	using OsiClass::OsiClass;
	void* create() const override
	{
		std::printf("%s", testModuleClosingText);
		return nullptr;
	}
};

OsiClassOf<Probe, VeloraTestProbe> probeClass("VeloraTestProbe", 1);
ClosingNotice closingNotice("MdlClosingLibrary", 0);

} // namespace
