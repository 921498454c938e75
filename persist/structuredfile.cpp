#include "persist/structuredfile.h"

#include <algorithm>

namespace {
constexpr long long kCopyChunk = 4096;
} // namespace

StructuredFile::StructuredFile(const char* prefix)
: signature(string_ext<char>(prefix) + "StructuredFileRelative"),
  oldSignature(string_ext<char>(prefix) + "StructuredFile")
{}

void StructuredFile::classNameAndVersion(const char* name, int version)
{
	if (!name)
		return;
	className = name;
	classVersion = version;
}

bool StructuredFile::openStream(TypedStream& typed, bool forWriting)
{
	stream = &typed;
	writing = forWriting;
	if (forWriting)
		return writeHeader();
	long long start = 0;
	if (!stream->tell(start) || !readHeader(start))
	{
		forget();
		return false;
	}
	return true;
}

// The writer does not look at the results of its own writes: a host stream
// that refuses them shows when the record is read back.
bool StructuredFile::writeHeader()
{
	relative = true;
	stream->write(signature, true);
	stream->resetLayout();
	stream->writeSizeofHeader();
	stream->write(className, true);
	stream->write(&classVersion, TypedStream::kInt, 1);
	stream->tell(completePosition);
	const int unfinished = 0;
	stream->write(&unfinished, TypedStream::kInt, 1);
	closed = false;
	return true;
}

bool StructuredFile::readHeader(long long start)
{
	relative = true;
	if (!stream->matchRead(signature))
	{
		relative = false;
		if (!stream->seek(start) || !stream->matchRead(oldSignature))
			return false;
	}
	int version = 0;
	int complete = 0;
	if (!stream->readSizeofHeader() || !stream->matchRead(className) ||
	    !stream->read(&version, TypedStream::kInt, 1) || !stream->tell(completePosition) ||
	    !stream->read(&complete, TypedStream::kInt, 1))
		return false;
	closed = false;
	return version == classVersion && complete == 1;
}

void StructuredFile::forget()
{
	stream = nullptr;
	closed = true;
	releaseStream();
}

bool StructuredFile::close(bool complete)
{
	if (!stream || closed)
		return false;
	if (writing)
	{
		long long end = 0;
		const int flag = complete ? 1 : 0;
		stream->tell(end);
		stream->seek(completePosition);
		stream->write(&flag, TypedStream::kInt, 1);
		stream->seek(end);
	}
	forget();
	return true;
}

bool StructuredFile::beginBlock(long long& blockEnd)
{
	if (!stream)
		return false;
	long long start = 0;
	if (!stream->tell(start))
		return false;
	if (writing)
	{
		blockEnd = start;
		return stream->write(&start, TypedStream::kLongLong, 1);
	}
	long long length = 0;
	if (!stream->read(&length, TypedStream::kLongLong, 1))
		return false;
	if (!relative)
		blockEnd = length;
	else if (__builtin_add_overflow(start, length, &blockEnd))
		return false;
	return true;
}

bool StructuredFile::beginClass(const char* name, int version, long long& blockEnd)
{
	if (!stream)
		return false;
	if (writing)
		return beginBlock(blockEnd) && stream->write(name ? name : "", true) &&
		       stream->write(&version, TypedStream::kInt, 1);
	long long start = 0;
	int found = 0;
	if (stream->tell(start) && beginBlock(blockEnd) &&
	    stream->matchRead(string_ext<char>(name ? name : "")) &&
	    stream->read(&found, TypedStream::kInt, 1) && found == version)
		return true;
	// Not this class: leave the block unconsumed for another try.
	stream->seek(start);
	blockEnd = start;
	return false;
}

bool StructuredFile::endBlock(long long blockEnd)
{
	if (!stream)
		return false;
	if (!writing)
		return stream->seek(blockEnd);
	long long end = 0;
	if (!stream->tell(end) || !stream->seek(blockEnd))
		return false;
	const long long length = relative ? end - blockEnd : end;
	return stream->write(&length, TypedStream::kLongLong, 1) && stream->seek(end);
}

bool StructuredFile::copyBlock(const StructuredFile& source)
{
	if (!stream || !writing || !relative || !source.stream || source.writing)
		return false;
	TypedStream& from = *source.stream;
	long long start = 0;
	long long length = 0;
	long long afterLength = 0;
	if (!from.tell(start) || !from.read(&length, TypedStream::kLongLong, 1) ||
	    !stream->write(&length, TypedStream::kLongLong, 1) || !from.tell(afterLength))
		return false;
	// The length is the source's word: copy in pieces and stop where its data end.
	long long end = 0;
	long long left = 0;
	if (__builtin_add_overflow(start, length, &end) ||
	    __builtin_sub_overflow(end, afterLength, &left))
		left = 0;
	char chunk[kCopyChunk];
	bool ok = true;
	while (ok && left > 0)
	{
		const long long piece = std::min(left, kCopyChunk);
		ok = from.readBytes(chunk, static_cast<size_t>(piece)) &&
		     stream->writeBytes(chunk, static_cast<size_t>(piece));
		left -= piece;
	}
	return from.seek(start) && ok;
}

bool StructuredFile::beginFixup(long long& pos)
{
	return stream && writing && stream->tell(pos);
}

bool StructuredFile::jumpFixup(long long& pos)
{
	long long here = 0;
	if (!stream || !writing || !stream->tell(here) || !stream->seek(pos))
		return false;
	pos = here;
	return true;
}

bool StructuredFile::endFixup(long long pos)
{
	return stream && writing && stream->seek(pos);
}

bool StructuredFile::markPosition(long long& pos)
{
	return stream && stream->tell(pos);
}

bool StructuredFile::jumpPosition(long long pos)
{
	return stream && stream->seek(pos);
}

// Switching direction on a C file or host stream needs a positioning call in
// between: a seek to where the stream already is.
void StructuredFile::forWriting()
{
	long long here = 0;
	if (stream && !writing && stream->tell(here))
	{
		writing = true;
		stream->seek(here);
	}
}

void StructuredFile::forReading()
{
	long long here = 0;
	if (stream && writing && stream->tell(here))
	{
		writing = false;
		stream->seek(here);
	}
}

bool StructuredFile::write(const void* data, TypedStream::DataType type, int count,
                           unsigned long elementSize)
{
	return stream && stream->write(data, type, count, elementSize);
}

bool StructuredFile::read(void* data, TypedStream::DataType type, int count,
                          unsigned long elementSize)
{
	return stream && stream->read(data, type, count, elementSize);
}
