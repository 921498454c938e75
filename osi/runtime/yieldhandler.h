// The module's yield procedure, which long computations call to let the user
// interface breathe, and the interface object through which another module
// reads and sets it: class "MdlYieldHandler", interface "MdlYieldProc".
#pragma once

#include "osi/base/mdlinterfaces.h"
#include "osi/runtime/modregistry.h"

#include <atomic>

using OsiYieldProc = void (*)();

// Calls this module's yield procedure, if one is set.
void osiYield();

// A handler lives in the code of the module that made it: release it before
// the last handle on that module.
class OsiYieldHandler : public MdlInterface
{
public:
	// Holds a reference on the module's parent instance while it lives.
	OsiYieldHandler();
	// Keeps the parent instance alive until the handler is gone.
	void destroy() override;
	const char* className() const override { return "MdlYieldProc"; }
	int classVersion() const override { return 1; }
	bool hasClassNameAndVersion(const char* name, int version) const override;

	virtual void setYieldProc(OsiYieldProc procedure);
	virtual OsiYieldProc yieldProc() const;

protected:
	~OsiYieldHandler() override;

private:
	std::atomic<OsiYieldProc>* procedure;
	MdlModuleInstance* parent;
};

using MdlYieldHandlerMdlYieldHandlerVerClass = OsiClassOf<OsiYieldHandler>;
