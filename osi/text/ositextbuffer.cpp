#include "osi/text/ositextbuffer.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr size_t kBufferSize = 32768;

// How many of the count bytes from come before the first terminator. Most
// readers stop at one character or none, which memchr serves.
size_t span(const char* from, size_t count, const char* terminators)
{
	if (!terminators[0])
		return count;
	if (!terminators[1])
	{
		const void* at = std::memchr(from, terminators[0], count);
		return at ? static_cast<size_t>(static_cast<const char*>(at) - from) : count;
	}
	size_t k = 0;
	while (k < count && !(from[k] != 0 && std::strchr(terminators, from[k])))
		++k;
	return k;
}

} // namespace

bool OsiTextBuffer::open(const char* path)
{
	close();
	if (!stream.open(path, "r"))
		return false;
	data.resize(kBufferSize);
	return true;
}

void OsiTextBuffer::close()
{
	stream.close();
	drop(0);
}

bool OsiTextBuffer::readLine(string_ext<char>& text, int max, const char* terminators, char& found)
{
	text.clear();
	found = 0;
	if (!isOpen() || !terminators)
		return false;
	while (static_cast<int>(text.size()) < max)
	{
		if (!fill())
			return !text.empty();
		const char* from = data.data() + next;
		const size_t count = std::min(static_cast<size_t>(max) - text.size(), used - next);
		const size_t length = span(from, count, terminators);
		text.append(from, length);
		next += length;
		if (length < count)
		{
			found = from[length];
			++next;
			return true;
		}
	}
	return true;
}

bool OsiTextBuffer::seek(long long position)
{
	// Within the buffer nothing needs reading again.
	if (isOpen() && position >= start && position <= start + static_cast<long long>(used))
	{
		next = static_cast<size_t>(position - start);
		ended = false;
		return true;
	}
	if (!stream.seek(position))
		return false;
	drop(position);
	return true;
}

bool OsiTextBuffer::seekEnd()
{
	long long end = 0;
	if (!stream.seekEnd() || !stream.tell(end))
		return false;
	drop(end);
	return true;
}

bool OsiTextBuffer::tell(long long& position) const
{
	if (!isOpen())
		return false;
	position = start + static_cast<long long>(next);
	return true;
}

void OsiTextBuffer::clearError()
{
	stream.clearError();
	ended = false;
}

bool OsiTextBuffer::fill()
{
	if (next < used)
		return true;
	FILE* file = stream.handle();
	if (!file)
		return false;
	start += static_cast<long long>(used);
	used = next = 0;
	used = std::fread(data.data(), 1, data.size(), file);
	ended = used == 0 && std::feof(file);
	return used > 0;
}

// Empties the buffer, which then starts at position, where the file stands.
void OsiTextBuffer::drop(long long position)
{
	start = position;
	used = next = 0;
	ended = false;
}
