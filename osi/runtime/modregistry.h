// Creation of framework objects by class name and version. Every creatable
// class has one static descriptor (an OsiClass) that registers itself in its
// module's class registry when the module's static initialisers run.
#pragma once

#include "osi/base/mdlinterfaces.h"
#include "osi/containers/cohashiter.h"
#include "osi/containers/cohashtable.h"

#include <cstdint>
#include <memory>

class OsiClass : public MdlClass
{
public:
	// Registers the descriptor unless name is null. The third argument has no
	// effect on lookup.
	OsiClass(const char* name, int version, bool = false, const char* versionName = nullptr);
	// Leaves the registry (a descriptor that is not static may go first).
	~OsiClass() override;
	OsiClass(const OsiClass&) = delete;
	OsiClass& operator=(const OsiClass&) = delete;

	const char* className() const override { return name.get(); }
	int classVersion() const override { return version; }
	const char* versionName() const override { return nameOfVersion.get(); }
	// Exactly this version, and a class name that matches name (see isMatch).
	bool isClass(const char* name, int version) const override;
	bool hasVersionName(const char* name) const override;
	// Descriptors of concrete classes make one new object; this one none.
	void* create() const override;
	// The order in which descriptors of this module were built, from 1.
	int32_t sequenceNumber() const { return sequence; }

	// Whether b begins with a: a class named Foo answers a request for FooBar.
	// Only the first 1024 characters count; an empty a matches only an empty b.
	static bool isMatch(const char* a, const char* b);
	// Characters before the NUL; 0 for null.
	static int length(const char* text);

private:
	std::unique_ptr<char[]> name;
	int version;
	int32_t sequence;
	std::unique_ptr<char[]> nameOfVersion;
};

// The descriptor of a concrete class: create() makes a new Implementation and
// hands it out as a pointer to Interface.
template <class Implementation, class Interface = MdlInterface> class OsiClassOf : public OsiClass
{
public:
	using OsiClass::OsiClass;
	void* create() const override { return static_cast<Interface*>(new Implementation); }
};

// The registry's table: classes under their names (case-sensitive), several
// versions of one name side by side.
class OsiClassHashTable : public OsiHashTable
{
public:
	OsiClassHashTable() : OsiHashTable(false, 100) {}
};

class OsiClassHashTableIter : public OsiHashTableIter
{
public:
	OsiClassHashTableIter(const OsiClassHashTable& table, const char* name);
	OsiClass* operator++(int) { return static_cast<OsiClass*>(OsiHashTableIter::operator++(0)); }
};

class OsiClassKeylessHashTableIter : public OsiKeylessHashTableIter
{
public:
	explicit OsiClassKeylessHashTableIter(const OsiClassHashTable& table)
	: OsiKeylessHashTableIter(table)
	{}
	OsiClass* operator++(int)
	{
		return static_cast<OsiClass*>(OsiKeylessHashTableIter::operator++(0));
	}
};

// The module's class registry. One lock serialises every access, including
// whole walks and the create() of the chosen descriptor: callbacks and
// constructors run under it and must not re-enter the registry.
class OsiClassRegistry
{
public:
	using ClassFunction = bool (*)(const MdlClass* theClass, void* data);

	static void registerClass(OsiClass* theClass);
	static void unregisterClass(OsiClass* theClass);
	// A new object of the class registered under exactly name with this
	// version; failing that (or when its create() gives null), of the first
	// class in table order whose name is a prefix of name, even if null.
	static void* create(const char* name, int version);
	// The first class for which fn returned true, or null.
	static const MdlClass* forAllClassesDo(ClassFunction fn, void* data);
	static const MdlClass* forAllNamedClassesDo(const char* name, ClassFunction fn, void* data);
	// Deletes the class table (not the descriptors).
	static void flush();
};

// Empties the registry when the module unloads.
class OsiClassRegistrySingleton
{
public:
	OsiClassRegistrySingleton() = default;
	~OsiClassRegistrySingleton() { OsiClassRegistry::flush(); }
};
