// The class registry handed to other modules as an interface object of class
// "MdlClassRegistry": each call runs in the registry of the module that
// created the object.
#pragma once

#include "osi/base/mdlinterfaces.h"
#include "osi/runtime/modregistry.h"

class OsiProtectedClassRegistry : public MdlInterface
{
public:
	const char* className() const override { return "MdlClassRegistry"; }
	int classVersion() const override { return 1; }
	bool hasClassNameAndVersion(const char* name, int version) const override;

	virtual void* create(const char* name, int version);
	virtual const MdlClass* forAllClassesDo(OsiClassRegistry::ClassFunction fn, void* data);
	virtual const MdlClass* forAllNamedClassesDo(const char* name,
	                                             OsiClassRegistry::ClassFunction fn, void* data);
};

using MdlClassRegistryMdlClassRegistryVerClass = OsiClassOf<OsiProtectedClassRegistry>;
