#include "osi/runtime/protectedregistry.h"

bool OsiProtectedClassRegistry::hasClassNameAndVersion(const char* name, int version) const
{
	return version == classVersion() && OsiClass::isMatch(className(), name);
}

void* OsiProtectedClassRegistry::create(const char* name, int version)
{
	return OsiClassRegistry::create(name, version);
}

const MdlClass* OsiProtectedClassRegistry::forAllClassesDo(OsiClassRegistry::ClassFunction fn,
                                                           void* data)
{
	return OsiClassRegistry::forAllClassesDo(fn, data);
}

const MdlClass* OsiProtectedClassRegistry::forAllNamedClassesDo(const char* name,
                                                                OsiClassRegistry::ClassFunction fn,
                                                                void* data)
{
	return OsiClassRegistry::forAllNamedClassesDo(name, fn, data);
}
