#include "nxvelora_state.h"

namespace Steinberg {
namespace Vst {

namespace {
constexpr const char* kRecordClass = "NxVelora";
constexpr int kRecordVersion = 1;
constexpr const char* kParametersBlock = "Parameters";
constexpr int kParametersVersion = 1;
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
		file.write(&count, TypedStream::kInt, 1);
		for (const auto& [id, value] : values)
		{
			file.write(&id, TypedStream::kUInt, 1);
			file.write(&value, TypedStream::kDouble, 1);
		}
		file.endBlock(blockEnd);
	}
	file.close(true);
}

bool StateRecordReader::open(IBStream* stream)
{
	file.classNameAndVersion(kRecordClass, kRecordVersion);
	return file.open(stream, false);
}

bool StateRecordReader::enterParameters(int32& count)
{
	inBlock = file.beginClass(kParametersBlock, kParametersVersion, blockEnd);
	if (!inBlock)
		return false;
	count = 0;
	file.read(&count, TypedStream::kInt, 1);
	return true;
}

bool StateRecordReader::readPair(ParamID& id, ParamValue& value)
{
	id = 0;
	value = 0.0;
	const bool gotId = file.read(&id, TypedStream::kUInt, 1);
	return file.read(&value, TypedStream::kDouble, 1) && gotId;
}

void StateRecordReader::finish()
{
	if (inBlock)
		file.endBlock(blockEnd);
	inBlock = false;
	file.close(false);
}

} // namespace Vst
} // namespace Steinberg
