#include "nxvelora_state.h"

#include "persist/vststructuredfile.h"

namespace Steinberg {
namespace Vst {

namespace {
// The record's layout: its class, its one block and the block's fields.
constexpr const char* kRecordClass = "NxVelora";
constexpr int kRecordVersion = 1;
constexpr const char* kParametersBlock = "Parameters";
constexpr int kParametersVersion = 1;
constexpr auto kCountType = TypedStream::kInt;
constexpr auto kIdType = TypedStream::kUInt;
constexpr auto kValueType = TypedStream::kDouble;

// One (ID, value) pair; false when either field could not be read.
bool readPair(VstStructuredFile& file, ParamID& id, ParamValue& value)
{
	id = 0;
	value = 0.0;
	const bool gotId = file.read(&id, kIdType, 1);
	return file.read(&value, kValueType, 1) && gotId;
}

// The block's pairs: as many as the reader's rule asks for, or up to and
// including the first pair cut short. The count is the record's word, so
// the list only grows with what the stream really holds.
ParameterValues readPairs(VstStructuredFile& file, PairsToRead pairsToRead)
{
	int32 count = 0;
	file.read(&count, kCountType, 1);
	ParameterValues pairs;
	const int32 wanted = pairsToRead(count);
	for (int32 i = 0; i < wanted; ++i)
	{
		ParamID id = 0;
		ParamValue value = 0.0;
		const bool whole = readPair(file, id, value);
		pairs.emplace_back(id, value);
		if (!whole)
			break;
	}
	return pairs;
}
} // namespace

void writeStateRecord(IBStream* stream, const ParameterValues& values)
{
	VstStructuredFile file;
	file.classNameAndVersion(kRecordClass, kRecordVersion);
	if (!file.open(stream, true))
		return;
	long long blockEnd = 0;
	if (file.beginClass(kParametersBlock, kParametersVersion, blockEnd))
	{
		const auto count = static_cast<int32>(values.size());
		file.write(&count, kCountType, 1);
		for (const auto& [id, value] : values)
		{
			file.write(&id, kIdType, 1);
			file.write(&value, kValueType, 1);
		}
		file.endBlock(blockEnd);
	}
	file.close(true);
}

std::optional<ParameterValues> readStateRecord(IBStream* stream, PairsToRead pairsToRead)
{
	VstStructuredFile file;
	file.classNameAndVersion(kRecordClass, kRecordVersion);
	if (!file.open(stream, false))
		return std::nullopt;
	ParameterValues pairs;
	long long blockEnd = 0;
	if (file.beginClass(kParametersBlock, kParametersVersion, blockEnd))
	{
		pairs = readPairs(file, pairsToRead);
		file.endBlock(blockEnd);
	}
	file.close(false);
	return pairs;
}

} // namespace Vst
} // namespace Steinberg
