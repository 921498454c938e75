#include "persist/osifilestream.h"

#include <cctype>
#include <cstring>

OsiFileStream::~OsiFileStream()
{
	close();
}

bool OsiFileStream::open(const char* path, const char* mode)
{
	close();
	if (!path || !mode)
		return false;
	file = std::fopen(path, mode);
	owned = true;
	resetLayout();
	return file != nullptr;
}

bool OsiFileStream::openDevice(FILE* device)
{
	close();
	file = device;
	owned = false;
	resetLayout();
	return file != nullptr;
}

bool OsiFileStream::openTemporary()
{
	close();
	file = std::tmpfile();
	owned = true;
	resetLayout();
	return file != nullptr;
}

bool OsiFileStream::close()
{
	if (!file)
		return false;
	const bool ok = owned ? std::fclose(file) == 0 : std::fflush(file) == 0;
	file = nullptr;
	return ok;
}

bool OsiFileStream::readLine(string_ext<char>& text, int max, char terminator)
{
	const char terminators[2] = {terminator, 0};
	char found = 0;
	return readLine(text, max, terminators, found);
}

bool OsiFileStream::readLine(string_ext<char>& text, int max, const char* terminators, char& found)
{
	text.clear();
	found = 0;
	if (!file || !terminators)
		return false;
	while (static_cast<int>(text.size()) < max)
	{
		const int c = std::fgetc(file);
		if (c == EOF)
			return !text.empty();
		if (c != 0 && std::strchr(terminators, c))
		{
			found = static_cast<char>(c);
			return true;
		}
		text.push_back(static_cast<char>(c));
	}
	return true;
}

bool OsiFileStream::writeLine(const char* text)
{
	return file && text && std::fputs(text, file) >= 0 && std::fputc('\n', file) != EOF;
}

int OsiFileStream::printf(const char* format, ...)
{
	va_list args;
	va_start(args, format);
	const int written = vprintf(format, args);
	va_end(args);
	return written;
}

int OsiFileStream::vprintf(const char* format, va_list args)
{
	return file && format ? std::vfprintf(file, format, args) : -1;
}

bool OsiFileStream::hexDump(const void* data, size_t size)
{
	if (!file || !data)
		return false;
	const auto* bytes = static_cast<const unsigned char*>(data);
	for (size_t line = 0; line < size; line += 16)
	{
		std::fprintf(file, "%08zx ", line);
		for (size_t i = line; i < line + 16; ++i)
			i < size ? std::fprintf(file, " %02x", bytes[i]) : std::fprintf(file, "   ");
		std::fputs("  ", file);
		for (size_t i = line; i < line + 16 && i < size; ++i)
			std::fputc(std::isprint(bytes[i]) ? bytes[i] : '.', file);
		std::fputc('\n', file);
	}
	return std::ferror(file) == 0;
}

bool OsiFileStream::readBytes(void* data, size_t size)
{
	return file && std::fread(data, 1, size, file) == size;
}

bool OsiFileStream::writeBytes(const void* data, size_t size)
{
	return file && std::fwrite(data, 1, size, file) == size;
}

bool OsiFileStream::seek(long long position)
{
	return file && position >= 0 && fseeko(file, static_cast<off_t>(position), SEEK_SET) == 0;
}

bool OsiFileStream::seekEnd()
{
	return file && fseeko(file, 0, SEEK_END) == 0;
}

bool OsiFileStream::tell(long long& position)
{
	if (!file)
		return false;
	const off_t where = ftello(file);
	if (where < 0)
		return false;
	position = where;
	return true;
}
