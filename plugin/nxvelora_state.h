// The plug-in's saved state: a structured record of class "NxVelora",
// version 1, with one "Parameters" block (version 1) of (ID, normalised
// value) pairs. Processor and controller write and read the same record.
#pragma once

#include "pluginterfaces/vst/vsttypes.h"

#include <optional>
#include <utility>
#include <vector>

namespace Steinberg {
class IBStream;

namespace Vst {

using ParameterValues = std::vector<std::pair<ParamID, ParamValue>>;

// Writes the record with the given pairs, in order.
void writeStateRecord(IBStream* stream, const ParameterValues& values);

// How many pairs a reader takes from a block whose count field says count:
// each side has its own rule.
using PairsToRead = int32 (*)(int32 count);

// Reads a record's pairs; nothing unless the stream holds a complete
// "NxVelora" version 1 record, and no pairs when it lacks the "Parameters"
// block (version 1). The fields inside the block are read unchecked, each
// cleared first: a pair cut short ends the list, with zeros where nothing
// could be read.
std::optional<ParameterValues> readStateRecord(IBStream* stream, PairsToRead pairsToRead);

} // namespace Vst
} // namespace Steinberg
