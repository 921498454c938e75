// The framework's string: a standard string with C-style buffer handling.
#pragma once

#include <cstring>
#include <string>

template <typename C> class string_ext : public std::basic_string<C>
{
public:
	using std::basic_string<C>::basic_string;
	string_ext() = default;
	string_ext(const std::basic_string<C>& s) : std::basic_string<C>(s) {}

	// Re-reads the length as that of the contents up to the first NUL, after
	// the buffer was written through data().
	void releaseBuffer()
	{
		const auto end = this->find(C(0));
		if (end != std::basic_string<C>::npos)
			this->resize(end);
	}
};
