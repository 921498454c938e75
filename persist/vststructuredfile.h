// The structured file over a host-supplied plug-in stream (not owned).
#pragma once

#include "persist/structuredfile.h"
#include "persist/vstfilestream.h"

class VstStructuredFile : public StructuredFile
{
public:
	VstStructuredFile() : StructuredFile("Vst") {}

	bool open(Steinberg::IBStream* hostStream, bool forWriting);

private:
	VstFileStream fileStream;
};
