// The framework's string: a standard string with C-style buffer handling and
// printf-style formatting.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

template <typename C> class string_ext : public std::basic_string<C>
{
public:
	using std::basic_string<C>::basic_string;
	string_ext() = default;
	string_ext(const std::basic_string<C>& s) : std::basic_string<C>(s) {}

	// Replaces the contents with the formatted text; returns the number of
	// characters the C library produced (a "%c" of 0 counts although it ends
	// the text), or -1 when the text cannot be formatted (a malformed format,
	// an unconvertible wide character, a result longer than INT_MAX).
	int sprintf(const char* format, ...) __attribute__((format(printf, 2, 3)))
	{
		va_list args;
		va_start(args, format);
		const int written = vsprintf(format, args);
		va_end(args);
		return written;
	}
	int vsprintf(const char* format, va_list args);

	// Re-reads the length as that of the contents up to the first NUL, after
	// the buffer was written through data().
	void releaseBuffer()
	{
		const auto end = this->find(C(0));
		if (end != std::basic_string<C>::npos)
			this->resize(end);
	}

	// The number of characters that the C library's vsprintf produces for
	// format and args, as the C library measures it (above INT_MAX when it
	// refuses them); args itself is left unread.
	size_t formatLength(const char* format, va_list args) const;
};

template <> int string_ext<char>::vsprintf(const char* format, va_list args);
template <> size_t string_ext<char>::formatLength(const char* format, va_list args) const;
