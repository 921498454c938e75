// Reads a stream of numbers out of a text file under a small layout string,
// interpreted cyclically one character at a time:
//   d or D      read one value; the character after it gives its extent:
//               ' ' or ',' up to that delimiter, N up to the end of the
//               line, T up to the next tab; otherwise a run of k d's is a
//               field of exactly k characters (at most 256)
//   N or n      skip the rest of the line
//   T or t      skip past the next tab
//   ' ' or ','  skip past the next blank or comma
//   other       skip one character
// So "d,dN" reads two comma-separated columns per line and "dddddN" one
// five-character field per line. Lines and columns are counted for the error
// message; after an error nothing more is read.
#pragma once

#include "osi/base/string_ext.h"
#include "osi/text/ositextbuffer.h"
#include "osi/text/ositextinputrange.h"
#include "osi/text/ositextinputstate.h"

#include <cstddef>
#include <cstdint>

class OsiTextInput
{
public:
	static constexpr const char* kCannotConvert =
	    "ERROR : Cannot convert data \"%s\"\nat line %ld, column %ld";

	OsiTextInput() = default;
	virtual ~OsiTextInput() = default;
	OsiTextInput(const OsiTextInput&) = delete;
	OsiTextInput& operator=(const OsiTextInput&) = delete;

	// Opens fileName for reading under format, closing any open file. False
	// for a null or empty argument or a file that cannot be opened.
	bool open(const char* fileName, const char* format);
	// Back to the start of the file and of the layout, line 1, column 1,
	// with the error cleared.
	bool reset();
	bool skipLines(int count);
	// The next value; 0 at the end of the data or after an error.
	double read();
	// The same, telling whether there was a value: false at the end of the
	// data (when blanks or skipped text follow the last value) or on error.
	bool read(double& value);
	// Reads every value from the current position to the end of the data;
	// the first value sets the bounds but is left out of the sum and count.
	// Then rewinds to the start of the file and of the layout (line and
	// column keep counting). An all-zero range when reading fails.
	OsiTextInputRange range();
	OsiTextInputState getState() const;
	void setState(const OsiTextInputState& state);

	// The steps of reading.
	void readPastLine();
	void readPastCharaters();
	void readPastDelimeter(char delimiter);
	// Reads the value under the layout position; false at the end of the
	// file or when the text does not convert (which sets the error).
	bool readDataValue(double& value);

	// True once only blanks remain (or no file is open).
	bool endOfData() const { return endOfDataFlag; }
	bool hasError() const { return errorFlag || stream.error(); }
	const string_ext<char>& errorMessage() const { return errorText; }
	const string_ext<char>& fileName() const { return path; }
	const string_ext<char>& format() const { return layout; }
	long long fileLength() const { return length; }
	int32_t line() const { return lineNumber; }
	int32_t column() const { return columnNumber; }

private:
	enum class Field
	{
		Missing, // the file has ended
		Complete,
		Overlong, // no delimiter within the longest field
	};

	bool atEndOfData();
	bool onlyBlanksFollow();
	// Carries out a skipping layout character (N, T, blank or comma).
	void skipPast(char action);
	Field readField(string_ext<char>& text, char delimiter);
	Field readFixedField(string_ext<char>& text, size_t width);
	Field readFieldAt(string_ext<char>& text);
	void advance(size_t count);
	void addToColumn(size_t bytes);
	void nextLine();

	bool endOfDataFlag = true;
	bool errorFlag = false;
	long long length = 0;
	string_ext<char> errorText;
	string_ext<char> path;
	string_ext<char> layout;
	size_t position = 0; // into layout
	int32_t pending = 0;
	int32_t columnNumber = 1;
	int32_t lineNumber = 1;
	mutable OsiTextBuffer stream;
	// Reused for every field and skipped piece, so that reading allocates
	// only for the first long one.
	string_ext<char> field;
	string_ext<char> scratch;
};
