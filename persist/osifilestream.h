// The typed stream over a standard C file, which it owns once opened.
#pragma once

#include "persist/typedstream.h"

#include <cstdio>

class OsiFileStream : public TypedStream
{
public:
	OsiFileStream() = default;
	~OsiFileStream() override;
	OsiFileStream(const OsiFileStream&) = delete;
	OsiFileStream& operator=(const OsiFileStream&) = delete;

	// Opens a file by path with a C mode ("w+b", "r+b", ...), closing any open one.
	bool open(const char* path, const char* mode);
	// Uses a standard device (stdin, stdout, stderr); it is not closed here.
	bool openDevice(FILE* device);
	// Opens an anonymous temporary file, removed when closed.
	bool openTemporary();
	bool close();
	bool isOpen() const { return file != nullptr; }
	// The C file's error indicator.
	bool error() const { return file && std::ferror(file) != 0; }
	// The C file's end-of-file indicator: a read has reached the end.
	bool endOfFile() const { return file && std::feof(file) != 0; }
	// Clears both indicators.
	void clearError()
	{
		if (file)
			std::clearerr(file);
	}
	// The open C file; null when none is open.
	FILE* handle() const { return file; }

	bool readBytes(void* data, size_t size) override;
	bool writeBytes(const void* data, size_t size) override;
	bool seek(long long position) override;
	bool seekEnd();
	bool tell(long long& position) override;

private:
	FILE* file = nullptr;
	bool owned = false;
};
