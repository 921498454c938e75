// Modules: shared libraries built on the framework. A handle (OsiModule)
// loads a module by path and creates the classes it registered; modules
// loaded twice share one reference-counted instance. A module reaches the
// module that loaded it through OsiParentModule.
#pragma once

#include "osi/base/mdlinterfaces.h"
#include "osi/runtime/osdmoduleinstance.h"

class OsiModule : public MdlModule
{
public:
	OsiModule();
	// Loads at once (see load).
	explicit OsiModule(const char* path, const MdlLocalHandlers* local = nullptr);
	// Releases the instance; the last handle of the process deletes the
	// instance table.
	~OsiModule() override;
	OsiModule(const OsiModule&) = delete;
	OsiModule& operator=(const OsiModule&) = delete;

	// Loads the library at path, or with local handlers stands for the running
	// module. Nothing when the handle holds a module already. Returns whether
	// it holds one.
	bool load(const char* path, const MdlLocalHandlers* local = nullptr);
	// Releases the held instance; false when there was none.
	bool free();

	const char* moduleName() const override;
	const char* moduleID() const override;
	void* create(const char* name, int version) const override;
	bool isValid() const override { return instance != nullptr; }
	const OsdModuleInstance* moduleInstance() const { return instance; }

private:
	OsdModuleInstance* instance = nullptr;
};

// The module that loaded this one, as it registered itself.
class OsiParentModule : public MdlModule
{
public:
	OsiParentModule() = default;
	~OsiParentModule() override = default;

	// The name under which the parent loaded this module.
	const char* moduleName() const override;
	const char* moduleID() const override;
	// Creates from the parent's registry.
	void* create(const char* name, int version) const override;
	bool isValid() const override;
};

// This module's globals.
MdlModuleInstance* parentModuleInstance();
void setParentModuleInstance(MdlModuleInstance* parent);
// The absolute path that the loading module registered; empty when none did.
const char* modulePath();
void setModulePath(const char* path);
// The platform loader's handle of this module.
void* handleInstance();
void module_init();
void module_free();
