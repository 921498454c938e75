#include "osi/osd/osdfile.h"

#include <sys/stat.h>

#include <climits>
#include <cstdlib>

bool osdAbsoluteFilePath(const char* path, std::string& absolutePath)
{
	if (!path || path[0] == '\0')
		return false;
	// realpath resolves against the working directory and checks existence.
	char resolved[PATH_MAX];
	if (!realpath(path, resolved))
		return false;
	struct stat status;
	if (stat(resolved, &status) != 0 || S_ISDIR(status.st_mode))
		return false;
	absolutePath = resolved;
	return true;
}
