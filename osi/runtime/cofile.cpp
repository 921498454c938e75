#include "osi/runtime/cofile.h"

#include "osi/osd/osdfile.h"

bool OsiWorkingDir::findAbsoluteFilePath(const char* path, std::string& absolutePath)
{
	return osdAbsoluteFilePath(path, absolutePath);
}
