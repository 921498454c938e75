// The plug-in's saved state: a structured record of class "NxVelora",
// version 1, with one "Parameters" block (version 1) of (ID, normalised
// value) pairs. Processor and controller write and read the same record.
#pragma once

#include "persist/vststructuredfile.h"
#include "pluginterfaces/vst/vsttypes.h"

#include <utility>
#include <vector>

namespace Steinberg {
namespace Vst {

using ParameterValues = std::vector<std::pair<ParamID, ParamValue>>;

// Writes the record with the given pairs, in order.
void writeStateRecord(IBStream* stream, const ParameterValues& values);

// Reads a record. open() refuses anything but a complete "NxVelora" version 1
// record; the fields inside the block are read unchecked, each cleared first,
// so a record cut short yields zeros where nothing could be read.
class StateRecordReader
{
public:
	bool open(IBStream* stream);
	// Enters the "Parameters" block (version 1); reads its pair count.
	bool enterParameters(int32& count);
	// True when both fields were there to read.
	bool readPair(ParamID& id, ParamValue& value);
	// Leaves the block (skipping what was not read) and closes the record.
	void finish();

private:
	VstStructuredFile file;
	long long blockEnd = 0;
	bool inBlock = false;
};

} // namespace Vst
} // namespace Steinberg
