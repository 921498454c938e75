#include "osi/runtime/module.h"

#include "osi/osd/osdatomic.h"
#include "osi/osd/osdmodule.h"

#include <atomic>
#include <cstring>

namespace {

std::atomic<MdlModuleInstance*> parentInstance{nullptr};
char pathOfModule[MdlNameLength] = {};
std::atomic<void*> moduleHandle{nullptr};
OsdModuleInstanceHashTable* instanceTable = nullptr;
long volatile liveHandles = 0;

// Clears the module's handle when the module is loaded and when it unloads.
struct ModuleLifetime
{
	ModuleLifetime() { module_init(); }
	~ModuleLifetime() { module_free(); }
} moduleLifetime;

} // namespace

OsiModule::OsiModule()
{
	atomicAdd(&liveHandles, 1);
}

OsiModule::OsiModule(const char* path, const MdlLocalHandlers* local) : OsiModule()
{
	load(path, local);
}

OsiModule::~OsiModule()
{
	OsdAtomicLockScope scope(osiModuleLock());
	free();
	if (atomicAdd(&liveHandles, -1) == 0)
	{
		delete instanceTable;
		instanceTable = nullptr;
	}
}

bool OsiModule::load(const char* path, const MdlLocalHandlers* local)
{
	OsdAtomicLockScope scope(osiModuleLock());
	if (instance)
		return true;
	if (!instanceTable)
		instanceTable = new OsdModuleInstanceHashTable;
	auto* opened = new OsdModuleInstance(path, local);
	OsdModuleInstance* shared = opened->isOpen() ? instanceTable->findSame(*opened) : nullptr;
	if (shared)
	{
		// The library opened a second time is closed again with the new instance.
		shared->lock();
		instance = shared;
	}
	else if (opened->isOpen() && opened->registerModuleInstance(instanceTable))
	{
		instance = opened;
		return true;
	}
	opened->release();
	return instance != nullptr;
}

bool OsiModule::free()
{
	OsdAtomicLockScope scope(osiModuleLock());
	if (!instance)
		return false;
	instance->release();
	instance = nullptr;
	return true;
}

const char* OsiModule::moduleName() const
{
	return instance ? instance->moduleName() : nullptr;
}

const char* OsiModule::moduleID() const
{
	return instance ? instance->moduleID() : "";
}

void* OsiModule::create(const char* name, int version) const
{
	return instance ? instance->create(name, version) : nullptr;
}

const char* OsiParentModule::moduleName() const
{
	MdlModuleInstance* parent = parentModuleInstance();
	return parent ? parent->moduleName() : nullptr;
}

const char* OsiParentModule::moduleID() const
{
	MdlModuleInstance* parent = parentModuleInstance();
	return parent ? parent->moduleID() : "";
}

void* OsiParentModule::create(const char* name, int version) const
{
	MdlModuleInstance* parent = parentModuleInstance();
	return parent ? parent->createOnParent(name, version) : nullptr;
}

bool OsiParentModule::isValid() const
{
	return parentModuleInstance() != nullptr;
}

MdlModuleInstance* parentModuleInstance()
{
	return parentInstance.load();
}

void setParentModuleInstance(MdlModuleInstance* parent)
{
	parentInstance.store(parent);
}

const char* modulePath()
{
	return pathOfModule;
}

void setModulePath(const char* path)
{
	std::strncpy(pathOfModule, path, MdlNameLength - 1);
	pathOfModule[MdlNameLength - 1] = '\0';
}

void* handleInstance()
{
	if (!moduleHandle.load())
		moduleHandle.store(osdOwnModuleHandle());
	return moduleHandle.load();
}

void module_init()
{
	moduleHandle.store(nullptr);
}

void module_free()
{
	moduleHandle.store(nullptr);
}
