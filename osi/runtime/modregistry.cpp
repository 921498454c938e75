#include "osi/runtime/modregistry.h"

#include "osi/osd/osdatomic.h"

#include <atomic>
#include <cstring>

namespace {

// Both locks are zero-filled statics, usable before any constructor runs.
OsdAtomicLock registryLock;
OsdAtomicLock classLock;
OsiClassHashTable* classTable = nullptr;
std::atomic<int32_t> lastSequence{0};

constexpr int significantCharacters = 1024;

std::unique_ptr<char[]> copyText(const char* text)
{
	if (!text)
		return nullptr;
	const size_t size = std::strlen(text) + 1;
	auto copy = std::make_unique<char[]>(size);
	std::memcpy(copy.get(), text, size);
	return copy;
}

} // namespace

OsiClassRegistrySingleton osiClassRegistrySingleton;

OsiClass::OsiClass(const char* className, int classVersion, bool, const char* versionName)
{
	{
		OsdAtomicLockScope scope(classLock);
		name = copyText(className);
		version = classVersion;
		sequence = lastSequence.fetch_add(1) + 1;
		if (className)
			nameOfVersion = copyText(versionName);
	}
	// Registered outside the class lock: create() takes the registry lock and
	// then the class lock, so the two are never taken the other way round.
	if (className)
		OsiClassRegistry::registerClass(this);
}

OsiClass::~OsiClass()
{
	OsiClassRegistry::unregisterClass(this);
}

bool OsiClass::isClass(const char* requested, int requestedVersion) const
{
	OsdAtomicLockScope scope(classLock);
	return requestedVersion == version && isMatch(name.get(), requested);
}

bool OsiClass::hasVersionName(const char* requested) const
{
	return nameOfVersion && isMatch(nameOfVersion.get(), requested);
}

void* OsiClass::create() const
{
	return nullptr;
}

bool OsiClass::isMatch(const char* a, const char* b)
{
	if (!a || !b)
		return false;
	if (a[0] == '\0')
		return b[0] == '\0';
	for (int i = 0; i < significantCharacters && a[i] != '\0'; ++i)
		if (a[i] != b[i])
			return false;
	return true;
}

int OsiClass::length(const char* text)
{
	return text ? static_cast<int>(std::strlen(text)) : 0;
}

OsiClassHashTableIter::OsiClassHashTableIter(const OsiClassHashTable& table, const char* name)
: OsiHashTableIter(table, OsiStringHashTableKey(name, true))
{}

void OsiClassRegistry::registerClass(OsiClass* theClass)
{
	if (!theClass)
		return;
	OsdAtomicLockScope scope(registryLock);
	if (!classTable)
		classTable = new OsiClassHashTable;
	classTable->insert(theClass, OsiStringHashTableKey(theClass->className(), true));
}

void OsiClassRegistry::unregisterClass(OsiClass* theClass)
{
	OsdAtomicLockScope scope(registryLock);
	if (classTable && theClass)
		classTable->remove(theClass, OsiStringHashTableKey(theClass->className(), true));
}

void* OsiClassRegistry::create(const char* name, int version)
{
	OsdAtomicLockScope scope(registryLock);
	if (!classTable)
		return nullptr;
	// First the classes registered under exactly this name.
	const OsiClass* tried = nullptr;
	OsiClassHashTableIter named(*classTable, name);
	while (OsiClass* candidate = named++)
		if (candidate->isClass(name, version))
		{
			if (void* object = candidate->create())
				return object;
			tried = candidate;
			break;
		}
	// Then any other class, such as one whose name begins the requested name.
	OsiClassKeylessHashTableIter all(*classTable);
	while (OsiClass* candidate = all++)
		if (candidate != tried && candidate->isClass(name, version))
			return candidate->create();
	return nullptr;
}

const MdlClass* OsiClassRegistry::forAllClassesDo(ClassFunction fn, void* data)
{
	OsdAtomicLockScope scope(registryLock);
	if (!fn || !classTable)
		return nullptr;
	OsiClassKeylessHashTableIter all(*classTable);
	while (OsiClass* candidate = all++)
		if (fn(candidate, data))
			return candidate;
	return nullptr;
}

const MdlClass* OsiClassRegistry::forAllNamedClassesDo(const char* name, ClassFunction fn,
                                                       void* data)
{
	OsdAtomicLockScope scope(registryLock);
	if (!fn || !classTable)
		return nullptr;
	OsiClassHashTableIter named(*classTable, name);
	while (OsiClass* candidate = named++)
		if (fn(candidate, data))
			return candidate;
	return nullptr;
}

void OsiClassRegistry::flush()
{
	OsdAtomicLockScope scope(registryLock);
	delete classTable;
	classTable = nullptr;
}
