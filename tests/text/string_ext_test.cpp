// string_ext's formatting against the C library's own snprintf.
#include "osi/base/string_ext.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cfloat>
#include <climits>
#include <cstdio>
#include <string>

namespace {

// string_ext and snprintf agree on the text and on the count.
template <typename... A> void compareWithC(const char* format, A... args)
{
	SCOPED_TRACE(format);
	errno = EACCES; // for %m, which must see errno as it was on entry
	const int expected = std::snprintf(nullptr, 0, format, args...);
	std::string reference(size_t(expected) + 1, '\0');
	errno = EACCES;
	std::snprintf(&reference[0], reference.size(), format, args...);
	string_ext<char> text;
	errno = EACCES;
	EXPECT_EQ(text.sprintf(format, args...), expected);
	EXPECT_EQ(text, std::string(reference.c_str()));
}

TEST(StringExtFormat, AgreesWithTheCLibrary)
{
	compareWithC("%*d|%-*s|%.*f", 12, 5, -8, "ab", 3, 2.5);
	compareWithC("%2$s %1$d", 42, "forty-two");
	compareWithC("%Lg %.3Le %lld", LDBL_MAX, 1e-300L, LLONG_MIN);
	compareWithC("%.2000g", DBL_MIN);
	compareWithC("%*.*s|%m|%5%", 400, 2, "abcdef");
	compareWithC("%s", std::string(100000, 'x').c_str());
}

TEST(StringExtFormat, RefusesWhatTheCLibraryCannotFormatAndEndsAtANul)
{
	// Formats held in variables, as the compiler would reject them as literals.
	for (const char* format :
	     {"%2147483648d", "%.2147483648f", "abc%", static_cast<const char*>(nullptr)})
	{
		string_ext<char> text("unchanged");
		EXPECT_EQ(text.sprintf(format, 1), -1) << (format ? format : "null");
		EXPECT_TRUE(text.empty());
	}
	string_ext<char> text;
	EXPECT_EQ(text.sprintf("%s%c%s", "ab", 0, "cd"), 5);
	EXPECT_EQ(text, "ab");
	text.sprintf("[%s|%s]", text.c_str(), text.c_str()); // the old contents as arguments
	EXPECT_EQ(text, "[ab|ab]");
	text.assign("abc\0def", 7);
	text.releaseBuffer();
	EXPECT_EQ(text, "abc");
}

} // namespace
