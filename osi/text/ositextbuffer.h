// A text file read through a buffer of its own, for readers that take it a
// few characters at a time: lines up to chosen terminators, a look at the
// next byte and positions, without a call into the C library per character.
#pragma once

#include "osi/base/string_ext.h"
#include "persist/osifilestream.h"

#include <cstddef>
#include <cstdio>
#include <vector>

class OsiTextBuffer
{
public:
	// Opens path for reading as text, closing any open file.
	bool open(const char* path);
	void close();
	bool isOpen() const { return stream.isOpen(); }

	// As OsiTextFile::readLine: at most max characters up to one of the
	// terminators, which is consumed but not kept (found receives it, 0 when
	// the line ended otherwise); false at the end of the file with nothing read.
	bool readLine(string_ext<char>& text, int max, const char* terminators, char& found);
	// The next byte without consuming it, or EOF.
	int peek() { return next < used || fill() ? static_cast<unsigned char>(data[next]) : EOF; }

	bool seek(long long position);
	bool seekEnd();
	bool tell(long long& position) const;

	// A read has tried to go past the last byte (until the next seek).
	bool endOfFile() const { return ended; }
	bool error() const { return stream.error(); }
	void clearError();

private:
	// Makes sure a byte is buffered; false at the end of the file or on error.
	bool fill();
	void drop(long long position);

	OsiFileStream stream;
	std::vector<char> data; // sized once, when opened
	long long start = 0;    // file position of data[0]
	size_t used = 0;        // bytes buffered
	size_t next = 0;        // the next byte to read
	bool ended = false;
};
