#include "osi/runtime/osdmoduleinstance.h"

#include "osi/containers/cohashiter.h"
#include "osi/osd/osdmodule.h"
#include "osi/runtime/cofile.h"
#include "osi/runtime/modregistry.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace {

OsdAtomicLock moduleLock;

OsiStringHashTableKey nameKey(const char* name)
{
	return OsiStringHashTableKey(name, false);
}

template <class Entry> Entry entryOf(void* handle, const char* name)
{
	return reinterpret_cast<Entry>(MdlGetProcAddress(handle, name, 0));
}

void copyName(char* buffer, const char* text)
{
	std::strncpy(buffer, text, MdlNameLength - 1);
	buffer[MdlNameLength - 1] = '\0';
}

} // namespace

OsdAtomicLock& osiModuleLock()
{
	return moduleLock;
}

OsdModuleInstance::OsdModuleInstance(const char* path, const MdlLocalHandlers* handlers)
{
	if (handlers)
	{
		createClass = handlers->createClass;
		registerInstance = handlers->registerModuleInstance;
		registerPath = handlers->registerModulePath;
		identify = handlers->moduleID;
		local = true;
		if (registerPath)
			registerPath(nullptr);
		return;
	}
	libraryHandle = path ? MdlLoadLibrary(path) : nullptr;
	if (!libraryHandle)
	{
		const char* error = MdlLoadError();
		std::printf("dlopen() of %s failed: %s\n", path ? path : "", error ? error : "");
		std::printf("Module load failed. Module path is\n %s\n", path ? path : "");
		return;
	}
	createClass = entryOf<MdlCreateClassProc>(libraryHandle, "MdlCreateClass");
	registerInstance =
	    entryOf<MdlRegisterModuleInstanceProc>(libraryHandle, "MdlRegisterModuleInstance");
	registerPath = entryOf<MdlRegisterModulePathProc>(libraryHandle, "MdlRegisterModulePath");
	identify = entryOf<MdlModuleIDProc>(libraryHandle, "MdlModuleID");
	std::string absolutePath;
	if (registerPath && OsiWorkingDir::findAbsoluteFilePath(path, absolutePath))
	{
		registerPath(absolutePath.c_str());
		copyName(name, absolutePath.c_str());
		std::printf("Module loaded. Module path is\n %s\nAbsolute path is %s\n", path,
		            absolutePath.c_str());
	}
}

OsdModuleInstance::~OsdModuleInstance()
{
	OsdAtomicLockScope scope(moduleLock);
	// Only the instance that the library took as its parent speaks for it: a
	// second instance of a library opened twice closes nothing the library sees.
	if (registeredWithModule)
	{
		createClass("MdlClosingLibrary", 0);
		registerInstance(nullptr);
	}
	if (table)
		table->remove(this, nameKey(name));
	MdlFreeLibrary(libraryHandle);
}

const char* OsdModuleInstance::moduleID() const
{
	return identify ? identify() : "";
}

void* OsdModuleInstance::createOnParent(const char* className, int version) const
{
	return OsiClassRegistry::create(className, version);
}

void* OsdModuleInstance::create(const char* className, int version) const
{
	return createClass ? createClass(className, version) : nullptr;
}

bool OsdModuleInstance::registerModuleInstance(OsdModuleInstanceHashTable* instances)
{
	if (!instances || !createClass || !registerInstance)
		return false;
	table = instances;
	table->insert(this, nameKey(name));
	registeredWithModule = true;
	registerInstance(this);
	return true;
}

OsdModuleInstanceHashTable::~OsdModuleInstanceHashTable()
{
	OsiKeylessHashTableIter all(this);
	while (void* instance = all++)
		static_cast<OsdModuleInstance*>(instance)->leaveTable();
}

OsdModuleInstance* OsdModuleInstanceHashTable::findSame(const OsdModuleInstance& instance) const
{
	OsiHashTableIter named(this, nameKey(instance.moduleName()));
	while (void* candidate = named++)
	{
		auto* registered = static_cast<OsdModuleInstance*>(candidate);
		if (registered->handle() == instance.handle() &&
		    registered->isLocal() == instance.isLocal())
			return registered;
	}
	return nullptr;
}
