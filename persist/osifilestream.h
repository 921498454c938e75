// The typed stream over a standard C file, which it owns once opened; it also
// carries text: lines, formatted output and hex dumps.
#pragma once

#include "persist/typedstream.h"

#include <cstdarg>
#include <cstdio>

class OsiFileStream : public TypedStream
{
public:
	using OsiDataType = DataType;

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
	// The next byte without consuming it, or EOF.
	int peek() { return file ? std::ungetc(std::getc(file), file) : EOF; }
	FILE* handle() const { return file; }

	// Reads a line of at most max characters, consuming its terminator (which
	// is not kept); false at the end of the file with nothing read. A longer
	// line is returned in pieces.
	bool readLine(string_ext<char>& text, int max, char terminator = '\n');
	// The same with a set of terminators; found receives the one that ended
	// the line (0 when the line ended otherwise).
	bool readLine(string_ext<char>& text, int max, const char* terminators, char& found);
	bool writeLine(const char* text);
	int printf(const char* format, ...) __attribute__((format(printf, 2, 3)));
	int vprintf(const char* format, va_list args);
	// Writes size bytes of data as hex and printable characters, 16 to a line.
	bool hexDump(const void* data, size_t size);

	bool readBytes(void* data, size_t size) override;
	bool writeBytes(const void* data, size_t size) override;
	bool seek(long long position) override;
	bool seekEnd();
	bool tell(long long& position) override;

private:
	FILE* file = nullptr;
	bool owned = false;
};
