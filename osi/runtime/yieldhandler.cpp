#include "osi/runtime/yieldhandler.h"

#include "osi/runtime/module.h"

namespace {

std::atomic<OsiYieldProc> moduleYieldProc{nullptr};

void releaseInstance(MdlModuleInstance* instance)
{
	if (instance)
		instance->release();
}

} // namespace

void osiYield()
{
	if (OsiYieldProc procedure = moduleYieldProc.load())
		procedure();
}

OsiYieldHandler::OsiYieldHandler() : procedure(&moduleYieldProc), parent(parentModuleInstance())
{
	if (parent)
		parent->lock();
}

OsiYieldHandler::~OsiYieldHandler()
{
	releaseInstance(parent);
}

void OsiYieldHandler::destroy()
{
	MdlModuleInstance* keeper = parent;
	if (keeper)
		keeper->lock();
	delete this;
	releaseInstance(keeper);
}

bool OsiYieldHandler::hasClassNameAndVersion(const char* name, int version) const
{
	return version == classVersion() && OsiClass::isMatch(className(), name);
}

void OsiYieldHandler::setYieldProc(OsiYieldProc newProcedure)
{
	procedure->store(newProcedure);
}

OsiYieldProc OsiYieldHandler::yieldProc() const
{
	return procedure->load();
}
