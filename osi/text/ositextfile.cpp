#include "osi/text/ositextfile.h"

#include <cctype>
#include <cstdio>
#include <cstring>

bool OsiTextFile::readLine(string_ext<char>& text, int max, char terminator)
{
	const char terminators[2] = {terminator, 0};
	char found = 0;
	return readLine(text, max, terminators, found);
}

bool OsiTextFile::readLine(string_ext<char>& text, int max, const char* terminators, char& found)
{
	text.clear();
	found = 0;
	FILE* file = handle();
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

int OsiTextFile::peek()
{
	FILE* file = handle();
	return file ? std::ungetc(std::getc(file), file) : EOF;
}

bool OsiTextFile::writeLine(const char* text)
{
	FILE* file = handle();
	return file && text && std::fputs(text, file) >= 0 && std::fputc('\n', file) != EOF;
}

int OsiTextFile::printf(const char* format, ...)
{
	va_list args;
	va_start(args, format);
	const int written = vprintf(format, args);
	va_end(args);
	return written;
}

int OsiTextFile::vprintf(const char* format, va_list args)
{
	FILE* file = handle();
	return file && format ? std::vfprintf(file, format, args) : -1;
}

bool OsiTextFile::hexDump(const void* data, size_t size)
{
	FILE* file = handle();
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
