// The interface through which the modules test looks inside its test module.
#pragma once

#include "osi/base/mdlinterfaces.h"

// Created in the test module as class "VeloraTestProbe", version 1.
class VeloraTestProbe : public MdlInterface
{
public:
	// Creates through the module's parent.
	virtual void* createOnParent(const char* name, int version) = 0;
	virtual bool hasParent() = 0;
	// The path the parent registered with the module.
	virtual const char* registeredPath() = 0;
	// Calls the module's yield procedure.
	virtual void callYield() = 0;
};

// What the test module prints when it is told that it is closing.
constexpr const char* testModuleClosingText = "test module: MdlClosingLibrary\n";
