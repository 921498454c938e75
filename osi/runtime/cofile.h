// File-system helpers of the framework.
#pragma once

#include <string>

class OsiWorkingDir
{
public:
	// The absolute, canonical path of an existing file (not a directory); a
	// relative path is taken against the working directory. False when there
	// is no such file.
	static bool findAbsoluteFilePath(const char* path, std::string& absolutePath);
};
