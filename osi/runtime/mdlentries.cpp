// The four entries that make a shared library a framework module, and the
// classes every module offers to others. Linked as an object into each
// module, so that the entries are exported even when nothing in the module
// calls them.
#include "osi/base/mdlinterfaces.h"
#include "osi/runtime/modregistry.h"
#include "osi/runtime/module.h"
#include "osi/runtime/protectedregistry.h"
#include "osi/runtime/yieldhandler.h"

namespace {

MdlClassRegistryMdlClassRegistryVerClass classRegistryClass("MdlClassRegistry", 1);
MdlYieldHandlerMdlYieldHandlerVerClass yieldHandlerClass("MdlYieldHandler", 1);

} // namespace

void* MdlCreateClass(const char* name, int version)
{
	return OsiClassRegistry::create(name, version);
}

void MdlRegisterModuleInstance(MdlModuleInstance* parent)
{
	setParentModuleInstance(parent);
}

void MdlRegisterModulePath(const char* path)
{
	if (path)
		setModulePath(path);
}

const char* MdlModuleID()
{
	return "";
}

void getLocalHandlers(MdlLocalHandlers* handlers)
{
	if (handlers)
		*handlers = {MdlCreateClass, MdlRegisterModuleInstance, MdlRegisterModulePath, MdlModuleID};
}
