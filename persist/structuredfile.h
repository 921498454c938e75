// The structured file format over a typed stream: a signed header naming one
// top-level class and its version, then nested, length-prefixed blocks, each
// naming a class and its version. The host-stream and file variants share
// this implementation and differ only in their signature and how the stream
// is opened.
#pragma once

#include "persist/typedstream.h"

class StructuredFile
{
public:
	virtual ~StructuredFile() = default;

	// Sets the expected top-level class; a null name changes nothing.
	void classNameAndVersion(const char* name, int version);

	bool close(bool complete);

	bool beginClass(const char* name, int version, long long& blockEnd);
	bool beginBlock(long long& blockEnd);
	bool endBlock(long long blockEnd);
	bool copyBlock(const StructuredFile& source);

	bool beginFixup(long long& pos);
	bool jumpFixup(long long& pos);
	bool endFixup(long long pos);
	bool markPosition(long long& pos);
	bool jumpPosition(long long pos);

	void forWriting();
	void forReading();

	bool isOpen() const { return stream != nullptr; }
	bool isWriting() const { return writing; }

	// Typed fields of the current block.
	bool write(const void* data, TypedStream::DataType type, int count,
	           unsigned long elementSize = 0);
	bool read(void* data, TypedStream::DataType type, int count, unsigned long elementSize = 0);
	bool write(const char* text, bool withLength)
	{
		return stream && stream->write(text, withLength);
	}
	bool read(string_ext<char>& text) { return stream && stream->read(text); }

protected:
	// prefix: "Vst" or "Osi", the start of both signatures.
	explicit StructuredFile(const char* prefix);

	// Writes or checks the header on an open typed stream; on a failed read
	// the stream is forgotten.
	bool openStream(TypedStream& typed, bool forWriting);
	// Called when the file lets go of its stream (closed or refused).
	virtual void releaseStream() {}

private:
	bool writeHeader();
	bool readHeader(long long start);
	void forget();

	string_ext<char> signature;    // "...StructuredFileRelative"
	string_ext<char> oldSignature; // "...StructuredFile", absolute block ends
	string_ext<char> className;
	int classVersion = 0;
	long long completePosition = 0;
	TypedStream* stream = nullptr;
	bool writing = false;
	bool closed = true;
	bool relative = true;
};
