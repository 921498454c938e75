#include "osi/base/mdlinterfaces.h"

bool MdlInterface::hasClassNameAndVersion(const char*, int) const
{
	return false;
}
