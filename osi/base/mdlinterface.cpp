#include "osi/base/mdlinterfaces.h"

#include "osi/osd/osdatomic.h"

void MdlInterface::lock()
{
	atomicAdd(&referenceCount, 1);
}

bool MdlInterface::unlock()
{
	return atomicAdd(&referenceCount, -1) == 0;
}

void MdlInterface::destroy()
{
	delete this;
}

bool MdlInterface::hasClassNameAndVersion(const char*, int) const
{
	return false;
}
