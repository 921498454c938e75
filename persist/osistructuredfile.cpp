#include "persist/osistructuredfile.h"

OsiStructuredFile::OsiStructuredFile(const char* name, int version) : StructuredFile("Osi")
{
	classNameAndVersion(name, version);
}

bool OsiStructuredFile::open(const char* path, bool forWriting)
{
	close(false);
	fileStream.close();
	if (!path || !fileStream.open(path, forWriting ? "w+b" : "r+b"))
		return false;
	filePath = path;
	// Unlike a host stream, a C file reports write errors: check them.
	return openStream(fileStream, forWriting) && !fileStream.error();
}

void OsiStructuredFile::releaseStream()
{
	fileStream.close();
}
