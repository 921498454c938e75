// Arbitrary bytes as a host stream: read as the plug-in's state record (the
// way the controller reads it, every pair), then walked as any structured
// file: blocks entered by whatever name they carry, strings and typed fields
// read, and blocks copied into a file being written.
#include "nxvelora_state.h"
#include "persist/memory_stream.h"
#include "persist/vststructuredfile.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace Steinberg;
using namespace Steinberg::Vst;
using velora_test::streamOf;

void readAsStateRecord(const std::vector<uint8_t>& bytes)
{
	readStateRecord(streamOf(bytes), [](int32 count) { return count; });
}

// Opens the bytes as a file of whatever class its header names.
void walkAsAnyFile(const std::vector<uint8_t>& bytes)
{
	auto probe = streamOf(bytes);
	VstFileStream header(probe);
	string_ext<char> signature, name;
	int version = 0;
	if (!header.read(signature) || !header.readSizeofHeader() || !header.read(name) ||
	    !header.read(&version, TypedStream::kInt, 1))
		return;

	auto stream = streamOf(bytes);
	VstStructuredFile file;
	file.classNameAndVersion(name.c_str(), version);
	if (!file.open(stream, false))
		return;
	auto copy = streamOf({});
	VstStructuredFile target;
	target.classNameAndVersion("Copy", 1);
	target.open(copy, true);
	// Each round consumes at least the block's length field, so this ends.
	for (int blocks = 0; blocks < 64; ++blocks)
	{
		long long start = 0, end = 0;
		if (!file.markPosition(start) || !target.copyBlock(file) || !file.jumpPosition(start))
			break;
		string_ext<char> blockName;
		int blockVersion = 0;
		if (!file.beginBlock(end) || !file.read(blockName) ||
		    !file.read(&blockVersion, TypedStream::kInt, 1))
			break;
		double values[4];
		file.read(values, TypedStream::kDouble, 4);
		long long after = 0;
		if (!file.endBlock(end) || !file.markPosition(after) || after <= start)
			break;
	}
	target.close(true);
	file.close(false);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	const std::vector<uint8_t> bytes(data, data + size);
	readAsStateRecord(bytes);
	walkAsAnyFile(bytes);
	return 0;
}
