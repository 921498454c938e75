// The instance that stands for one loaded library, and the process's table
// that shares instances by module name, so that a library opened twice is
// one reference-counted instance.
#pragma once

#include "osi/base/mdlinterfaces.h"
#include "osi/containers/cohashtable.h"
#include "osi/osd/osdatomic.h"

// Serialises loading and releasing of modules, and the instance table.
OsdAtomicLock& osiModuleLock();

class OsdModuleInstanceHashTable;

class OsdModuleInstance : public MdlModuleInstance
{
public:
	// Opens the library at path (or stands for the running module when local
	// handlers are given) and looks up its four entries. A failure to open is
	// printed and leaves the instance without a library.
	OsdModuleInstance(const char* path, const MdlLocalHandlers* local = nullptr);

	// The absolute path of the library; empty when it has no path entry.
	const char* moduleName() const override { return name; }
	const char* moduleID() const override;
	void* createOnParent(const char* name, int version) const override;

	// Creates from the library's registry; null without a create-class entry.
	void* create(const char* name, int version) const;
	// Enters the table and tells the library that this instance is its
	// parent; refused without the create-class and register-instance entries.
	bool registerModuleInstance(OsdModuleInstanceHashTable* table);
	// The table is going away before this instance.
	void leaveTable() { table = nullptr; }

	bool isLocal() const { return local; }
	bool isOpen() const { return local || libraryHandle; }
	void* handle() const { return libraryHandle; }

protected:
	// Tells a library that learnt its parent from this instance that it is
	// closing, leaves the table and closes the library.
	~OsdModuleInstance() override;

private:
	bool local = false;
	void* libraryHandle = nullptr;
	MdlCreateClassProc createClass = nullptr;
	MdlRegisterModuleInstanceProc registerInstance = nullptr;
	MdlRegisterModulePathProc registerPath = nullptr;
	MdlModuleIDProc identify = nullptr;
	char name[MdlNameLength] = {};
	OsdModuleInstanceHashTable* table = nullptr;
	bool registeredWithModule = false;
};

// The process's loaded modules under their names (case-insensitive).
class OsdModuleInstanceHashTable : public OsiHashTable
{
public:
	OsdModuleInstanceHashTable() : OsiHashTable(false, 100) {}
	// Instances still alive outlive the table: they are told to leave it.
	~OsdModuleInstanceHashTable() override;

	// The registered instance that stands for the same library as instance.
	OsdModuleInstance* findSame(const OsdModuleInstance& instance) const;
};
