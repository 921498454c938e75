// The structured file in a named file, which it opens and owns.
#pragma once

#include "persist/osifilestream.h"
#include "persist/structuredfile.h"

#include <string>

class OsiStructuredFile : public StructuredFile
{
public:
	OsiStructuredFile(const char* name, int version);

	// Opens path with mode "w+b" (writing) or "r+b" (reading), closing a file
	// that is open.
	bool open(const char* path, bool forWriting);
	// The C file's error indicator.
	bool fileError() const { return fileStream.error(); }
	const std::string& path() const { return filePath; }

private:
	void releaseStream() override;

	std::string filePath;
	OsiFileStream fileStream;
};
