#include "persist/vststructuredfile.h"

bool VstStructuredFile::open(Steinberg::IBStream* hostStream, bool forWriting)
{
	if (!hostStream)
		return false;
	fileStream = VstFileStream(hostStream);
	return openStream(fileStream, forWriting);
}
