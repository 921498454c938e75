// The interfaces that cross module boundaries: reference-counted interface
// objects, class descriptors, module instances and module handles, and the
// four entries that every framework module exports. Objects behind these
// interfaces are created and deleted by the module that owns their code.
#pragma once

#include "osi/base/referencecount.h"

// An interface object: reference counted (lock, unlock, destroy) and named.
class MdlInterface : public OsiReferenceCount
{
public:
	virtual const char* className() const = 0;
	virtual int classVersion() const = 0;
	virtual bool hasClassNameAndVersion(const char* name, int version) const;

protected:
	~MdlInterface() override = default;
};

// Gives one reference on an interface object back, destroying it with the last.
inline void mdlRelease(MdlInterface* object)
{
	if (object)
		object->release();
}

// The descriptor of a class that can be created by name and version.
class MdlClass
{
public:
	virtual const char* className() const = 0;
	virtual int classVersion() const = 0;
	virtual const char* versionName() const = 0;
	virtual bool isClass(const char* name, int version) const = 0;
	virtual bool hasVersionName(const char* name) const = 0;
	// A new object of the class (for interface classes: its interface
	// pointer), which belongs to the caller; null when none can be made.
	virtual void* create() const = 0;

protected:
	virtual ~MdlClass() = default;
};

// A loaded module as its loading module sees it, reference counted.
class MdlModuleInstance : public OsiReferenceCount
{
public:
	virtual const char* moduleName() const = 0;
	virtual const char* moduleID() const = 0;
	// Creates from the registry of the module that loaded this one.
	virtual void* createOnParent(const char* name, int version) const = 0;

protected:
	~MdlModuleInstance() override = default;
};

// A handle on a module.
class MdlModule
{
public:
	virtual const char* moduleName() const = 0;
	virtual const char* moduleID() const = 0;
	virtual void* create(const char* name, int version) const = 0;
	virtual bool isValid() const = 0;

protected:
	virtual ~MdlModule() = default;
};

// The entries of a module, by their exported names.
using MdlCreateClassProc = void* (*)(const char* name, int version);
using MdlRegisterModuleInstanceProc = void (*)(MdlModuleInstance* parent);
using MdlRegisterModulePathProc = void (*)(const char* path);
using MdlModuleIDProc = const char* (*)();

struct MdlLocalHandlers
{
	MdlCreateClassProc createClass;
	MdlRegisterModuleInstanceProc registerModuleInstance;
	MdlRegisterModulePathProc registerModulePath;
	MdlModuleIDProc moduleID;
};

// Names and paths crossing module boundaries fit buffers of this size.
constexpr int MdlNameLength = 2048;

#define MDL_EXPORT extern "C" __attribute__((visibility("default")))

MDL_EXPORT void* MdlCreateClass(const char* name, int version);
MDL_EXPORT void MdlRegisterModuleInstance(MdlModuleInstance* parent);
MDL_EXPORT void MdlRegisterModulePath(const char* path);
MDL_EXPORT const char* MdlModuleID();

// Fills handlers with this module's own four entries (nothing for null), to
// represent the running module without a dynamic load.
void getLocalHandlers(MdlLocalHandlers* handlers);
