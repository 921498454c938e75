#include "osi/text/ositextinput.h"

#include "osi/text/osidecimalnumber.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <functional>

namespace {

// Lines, fields and skipped characters are read at most this many at a time;
// no field is longer.
constexpr size_t kChunk = 256;
// How far past a value a run of blanks is followed to see whether the data
// end there.
constexpr size_t kLookAhead = 65536;

bool isBlank(int c)
{
	return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

bool isValue(char c)
{
	return c == 'd' || c == 'D';
}

// Layout characters other than these skip one input character each.
bool isAction(char c)
{
	return isValue(c) || c == 'N' || c == 'n' || c == 'T' || c == 't' || c == ' ' || c == ',';
}

// Counts stop at the largest int32 rather than wrap.
int32_t saturatedAdd(int32_t count, size_t more)
{
	const size_t sum = static_cast<size_t>(count) + std::min<size_t>(more, INT32_MAX);
	return static_cast<int32_t>(std::min<size_t>(sum, INT32_MAX));
}

} // namespace

bool OsiTextInput::open(const char* fileName, const char* format)
{
	stream.close();
	endOfDataFlag = true;
	if (!fileName || !format || !*format)
		return false;
	errorText.clear();
	errorFlag = false;
	path = fileName;
	layout = format;
	position = 0;
	pending = 0;
	lineNumber = 1;
	columnNumber = 1;
	length = 0;
	if (!stream.open(fileName))
		return false;
	if (stream.seekEnd())
		stream.tell(length);
	stream.seek(0);
	endOfDataFlag = atEndOfData();
	return true;
}

bool OsiTextInput::reset()
{
	stream.clearError();
	const bool rewound = stream.seek(0);
	errorText.clear();
	errorFlag = false;
	position = 0;
	pending = 0;
	columnNumber = 1;
	lineNumber = 1;
	endOfDataFlag = !rewound || atEndOfData();
	return rewound;
}

bool OsiTextInput::skipLines(int count)
{
	if (!stream.isOpen())
		return false;
	for (int i = 0; i < count && !stream.endOfFile() && !stream.error(); ++i)
		readPastLine();
	endOfDataFlag = atEndOfData();
	return true;
}

double OsiTextInput::read()
{
	double value = 0;
	return read(value) ? value : 0;
}

OsiTextInputRange OsiTextInput::range()
{
	if (hasError())
		return {};
	OsiTextInputRange result;
	double value = 0;
	if (read(value))
	{
		result = OsiTextInputRange(value, value, 0, 0);
		while (!endOfDataFlag && read(value))
			result.addToRange(value);
	}
	if (errorFlag)
		result = {};
	stream.clearError();
	stream.seek(0);
	position = 0;
	pending = 0;
	endOfDataFlag = atEndOfData();
	return result;
}

OsiTextInputState OsiTextInput::getState() const
{
	OsiTextInputState state;
	state.formatPosition = layout.c_str() + position;
	state.pending = pending;
	stream.tell(state.filePosition);
	return state;
}

void OsiTextInput::setState(const OsiTextInputState& state)
{
	stream.clearError();
	stream.seek(state.filePosition);
	// A position from another layout string starts this one afresh.
	const char* begin = layout.c_str();
	const bool inLayout = !std::less<const char*>()(state.formatPosition, begin) &&
	                      std::less<const char*>()(state.formatPosition, begin + layout.size());
	position = inLayout ? static_cast<size_t>(state.formatPosition - begin) : 0;
	pending = std::max<int32_t>(state.pending, 0);
	endOfDataFlag = atEndOfData();
}

void OsiTextInput::readPastLine()
{
	char found = 0;
	while (stream.readLine(scratch, kChunk, "\n", found) && !found)
	{}
	nextLine();
}

void OsiTextInput::readPastCharaters()
{
	if (pending <= 0)
	{
		pending = 0;
		return;
	}
	char found = 0;
	while (pending > 0)
	{
		const size_t chunk = std::min<size_t>(static_cast<size_t>(pending), kChunk);
		if (!stream.readLine(scratch, static_cast<int>(chunk), "", found))
			break;
		addToColumn(scratch.size());
		pending -= static_cast<int32_t>(chunk);
	}
	pending = 0;
}

void OsiTextInput::readPastDelimeter(char delimiter)
{
	const char terminators[2] = {delimiter, 0};
	char found = 0;
	while (stream.readLine(scratch, kChunk, terminators, found))
	{
		addToColumn(scratch.size() + (found ? 1 : 0));
		if (found)
			break;
	}
}

bool OsiTextInput::readDataValue(double& value)
{
	const int32_t line = lineNumber;
	const int32_t column = columnNumber;
	const Field read = readFieldAt(field);
	if (read == Field::Missing)
		return false;
	if (read == Field::Complete && OsiDecimalNumber::scan(field.c_str(), value))
		return true;
	errorText.sprintf(kCannotConvert, field.c_str(), static_cast<long>(line),
	                  static_cast<long>(column));
	errorFlag = true;
	return false;
}

// Reads the field of the value under the layout position and moves the
// position past its layout characters.
OsiTextInput::Field OsiTextInput::readFieldAt(string_ext<char>& text)
{
	const char after = layout[position + 1 < layout.size() ? position + 1 : 0];
	switch (after)
	{
	case ' ':
	case ',':
	case 'T':
	case 't':
	{
		advance(2);
		return readField(text, after == ' ' || after == ',' ? after : '\t');
	}
	case 'N':
	case 'n':
	{
		advance(2);
		const Field field = readField(text, '\n');
		nextLine();
		return field;
	}
	default:
	{
		size_t run = 1;
		while (position + run < layout.size() && isValue(layout[position + run]))
			++run;
		advance(run);
		return readFixedField(text, std::min(run, kChunk));
	}
	}
}

OsiTextInput::Field OsiTextInput::readField(string_ext<char>& text, char delimiter)
{
	const char terminators[2] = {delimiter, 0};
	char found = 0;
	if (!stream.readLine(text, kChunk, terminators, found))
		return Field::Missing;
	addToColumn(text.size() + (found ? 1 : 0));
	if (found || text.size() < kChunk)
		return Field::Complete;
	// A full buffer: complete only if the delimiter or the end comes next.
	const int next = stream.peek();
	if (next == EOF)
		return Field::Complete;
	if (next != static_cast<unsigned char>(delimiter))
		return Field::Overlong;
	stream.readLine(scratch, 1, terminators, found);
	addToColumn(1);
	return Field::Complete;
}

OsiTextInput::Field OsiTextInput::readFixedField(string_ext<char>& text, size_t width)
{
	char found = 0;
	if (!stream.readLine(text, static_cast<int>(width), "", found))
		return Field::Missing;
	addToColumn(text.size());
	return Field::Complete;
}

bool OsiTextInput::read(double& value)
{
	if (!stream.isOpen() || hasError())
		return false;
	bool haveValue = false;
	while (!haveValue && !errorFlag && !stream.endOfFile() && !stream.error())
	{
		const char action = layout[position];
		if (!isAction(action))
		{
			++pending;
			advance(1);
			continue;
		}
		readPastCharaters();
		if (!isValue(action))
		{
			skipPast(action);
			advance(1);
		}
		else if (atEndOfData())
			break;
		else
			haveValue = readDataValue(value);
	}
	readPastCharaters();
	endOfDataFlag = atEndOfData();
	return haveValue;
}

void OsiTextInput::skipPast(char action)
{
	if (action == 'N' || action == 'n')
		readPastLine();
	else if (action == 'T' || action == 't')
		readPastDelimeter('\t');
	else
		readPastDelimeter(action);
}

// Only blanks (within the look-ahead) up to the end of the file remain.
bool OsiTextInput::atEndOfData()
{
	const int next = stream.peek();
	if (next == EOF)
		return true;
	return isBlank(next) && onlyBlanksFollow();
}

// The look-ahead from a blank, kept apart so that the common case above
// stays small enough to inline.
bool OsiTextInput::onlyBlanksFollow()
{
	long long here = 0;
	if (!stream.tell(here))
		return false;
	char found = 0;
	bool blank = true;
	for (size_t seen = 0; blank && seen < kLookAhead; seen += kChunk)
	{
		if (!stream.readLine(scratch, kChunk, "", found))
			break;
		blank = std::all_of(scratch.begin(), scratch.end(), isBlank);
	}
	const bool ended = blank && stream.endOfFile();
	stream.seek(here);
	return ended;
}

// Moves the layout position on, cyclically; characters still pending are
// skipped whenever the layout starts over, so that a layout without values
// still moves through the file.
void OsiTextInput::advance(size_t count)
{
	// Subtracting, not dividing: a step is at most a little over one layout.
	size_t next = position + count;
	const bool wrapped = next >= layout.size();
	while (next >= layout.size())
		next -= layout.size();
	position = next;
	if (wrapped)
		readPastCharaters();
}

void OsiTextInput::addToColumn(size_t bytes)
{
	columnNumber = saturatedAdd(columnNumber, bytes);
}

void OsiTextInput::nextLine()
{
	lineNumber = saturatedAdd(lineNumber, 1);
	columnNumber = 1;
}
