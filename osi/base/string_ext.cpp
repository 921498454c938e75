// Formatting into a string_ext: the C library measures the text first, then
// writes it into storage of exactly that size.
#include "osi/base/string_ext.h"

#include <cerrno>
#include <climits>
#include <cstdio>

namespace {

// What formatLength reports for a text that the C library refuses: longer
// than any that vsprintf can produce.
constexpr size_t kCannotFormat = size_t(INT_MAX) + 1;

} // namespace

template <> size_t string_ext<char>::formatLength(const char* format, va_list args) const
{
	if (!format)
		return 0;
	va_list measured;
	va_copy(measured, args);
	const int length = std::vsnprintf(nullptr, 0, format, measured);
	va_end(measured);
	return length < 0 ? kCannotFormat : size_t(length);
}

template <> int string_ext<char>::vsprintf(const char* format, va_list args)
{
	const int error = errno;
	const size_t length = format ? formatLength(format, args) : kCannotFormat;
	if (length >= kCannotFormat)
	{
		this->clear();
		return -1;
	}
	string_ext<char> result;
	result.resize(length);
	errno = error; // %m prints errno as it was on entry

	const int written = std::vsnprintf(&result[0], length + 1, format, args);
	if (written < 0)
	{
		this->clear();
		return -1;
	}
	result.releaseBuffer();
	this->swap(result);
	return written;
}
