// A C file read and written as text: lines with chosen terminators, printf-
// style output and hex dumps, beside the typed stream of the file it extends.
#pragma once

#include "osi/base/string_ext.h"
#include "persist/osifilestream.h"

#include <cstdarg>
#include <cstddef>

class OsiTextFile : public OsiFileStream
{
public:
	// Reads a line of at most max characters, consuming its terminator (which
	// is not kept); false at the end of the file with nothing read. A longer
	// line is returned in pieces.
	bool readLine(string_ext<char>& text, int max, char terminator = '\n');
	// The same with a set of terminators; found receives the one that ended
	// the line (0 when the line ended otherwise).
	bool readLine(string_ext<char>& text, int max, const char* terminators, char& found);
	// The next byte without consuming it, or EOF.
	int peek();

	bool writeLine(const char* text);
	int printf(const char* format, ...) __attribute__((format(printf, 2, 3)));
	int vprintf(const char* format, va_list args);
	// Writes size bytes of data as hex and printable characters, 16 to a line.
	bool hexDump(const void* data, size_t size);
};
