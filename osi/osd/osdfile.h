// The file system as the platform reports it.
#pragma once

#include <string>

// The absolute, canonical path of an existing file (not a directory); a
// relative path is taken against the working directory. False when there is
// no such file.
bool osdAbsoluteFilePath(const char* path, std::string& absolutePath);
