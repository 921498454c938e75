// string_ext's formatting against the C library's own: the measured length
// never falls short of what snprintf produces, over many generated formats
// and arguments, and the text is the same.
#include "osi/base/string_ext.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <limits>
#include <random>
#include <string>
#include <variant>

namespace {

size_t boundOf(const char* format, ...)
{
	va_list args;
	va_start(args, format);
	const size_t bound = string_ext<char>().formatLength(format, args);
	va_end(args);
	return bound;
}

// Formats with the C library and with string_ext; the bound must cover the
// C library's length and the texts must agree.
template <typename... A> void compareWithC(const std::string& format, A... args)
{
	SCOPED_TRACE("format \"" + format + "\"");
	errno = EACCES; // for %m
	const int expected = std::snprintf(nullptr, 0, format.c_str(), args...);
	errno = EACCES;
	const size_t bound = boundOf(format.c_str(), args...);
	if (expected < 0)
		return; // the C library refuses it too (checked separately)
	EXPECT_GE(bound, size_t(expected));

	std::string reference(size_t(expected) + 1, '\0');
	errno = EACCES;
	std::snprintf(&reference[0], reference.size(), format.c_str(), args...);
	string_ext<char> text;
	errno = EACCES;
	EXPECT_EQ(text.sprintf(format.c_str(), args...), expected);
	EXPECT_EQ(text, std::string(reference.c_str()));
}

class FormatGenerator
{
public:
	explicit FormatGenerator(unsigned seed) : random(seed) {}

	int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); }
	bool chance(int percent) { return pick(100) < percent; }
	char oneOf(const char* choices) { return choices[pick(int(std::strlen(choices)))]; }

	std::string literal()
	{
		std::string text;
		for (int n = pick(4); n > 0; --n)
			text += oneOf("abc xyz-%");
		// A lone '%' would start a directive: double it.
		std::string escaped;
		for (char c : text)
			escaped += c == '%' ? std::string("%%") : std::string(1, c);
		return escaped;
	}

	std::string flags()
	{
		std::string text;
		for (int n = pick(4); n > 0; --n)
			text += oneOf("-+ #0'I");
		return text;
	}

	// A literal number, mostly small, sometimes large.
	std::string number() { return std::to_string(chance(90) ? pick(40) : pick(5000)); }

	int starValue() { return chance(80) ? pick(60) - 10 : pick(3000) - 1000; }

	int integer()
	{
		const int special[] = {0, 1, -1, INT_MIN, INT_MAX, 1000000};
		return chance(30) ? special[pick(6)] : int(random());
	}

	long long longInteger()
	{
		const long long special[] = {0, LLONG_MIN, LLONG_MAX, -1, 123456789012345LL};
		return chance(30) ? special[pick(5)] : (long long)((random() << 32) ^ random());
	}

	double real()
	{
		const double special[] = {0.0,       -0.0,        1.0,
		                          -1.0,      0.5,         9.9999999,
		                          999999.5,  1e-300,      std::numeric_limits<double>::denorm_min(),
		                          DBL_MAX,   -DBL_MAX,    HUGE_VAL,
		                          -HUGE_VAL, std::nan("")};
		if (chance(40))
			return special[pick(14)];
		const double mantissa = std::uniform_real_distribution<double>(-10, 10)(random);
		return mantissa * std::pow(10.0, pick(620) - 310);
	}

	long double longReal()
	{
		const long double special[] = {0.0L,
		                               1.0L,
		                               -1.0L,
		                               LDBL_MAX,
		                               -LDBL_MAX,
		                               LDBL_MIN,
		                               std::numeric_limits<long double>::denorm_min(),
		                               HUGE_VALL,
		                               1e4000L};
		if (chance(40))
			return special[pick(9)];
		const long double mantissa = std::uniform_real_distribution<double>(-10, 10)(random);
		return mantissa * std::pow(10.0L, pick(9800) - 4900);
	}

	const char* text()
	{
		if (chance(5))
			return nullptr; // printed as "(null)" by the GNU library
		std::string& s = strings[pick(8)];
		s.clear();
		for (int n = pick(chance(90) ? 20 : 400); n > 0; --n)
			s += char(' ' + pick(95));
		return s.c_str();
	}

	std::mt19937_64 random;

private:
	std::string strings[8];
};

using Value = std::variant<int, long, long long, double, long double, const char*, void*>;

// One directive with its value: the conversion and length that fit the type.
struct Directive
{
	std::string text;
	bool hasValue = true;
	Value value;
};

Directive makeDirective(FormatGenerator& g, bool starsAllowed, bool& starWidth, bool& starPrecision)
{
	Directive d;
	std::string directive = "%" + g.flags();
	starWidth = starsAllowed && g.chance(20);
	if (starWidth)
		directive += "*";
	else if (g.chance(50))
		directive += g.number();
	starPrecision = starsAllowed && g.chance(20);
	if (starPrecision)
		directive += ".*";
	else if (g.chance(50))
		directive += "." + (g.chance(20) ? std::string() : g.number());

	const char* integers = "diouxXbB";
	switch (g.pick(9))
	{
	case 0:
		directive += std::string(g.chance(50) ? "" : g.chance(50) ? "h" : "hh") + g.oneOf(integers);
		d.value = g.integer();
		break;
	case 1:
		directive += std::string(1, g.oneOf("ljzt")) + g.oneOf(integers);
		d.value = long(g.longInteger());
		break;
	case 2:
		directive += std::string(g.chance(50)   ? "ll"
		                         : g.chance(50) ? "L"
		                                        : "q") +
		             g.oneOf(integers);
		d.value = g.longInteger();
		break;
	case 3:
		directive += std::string(g.chance(80) ? "" : "l") + g.oneOf("fFeEgGaA");
		d.value = g.real();
		break;
	case 4:
		directive += std::string(g.chance(80) ? "L" : "ll") + g.oneOf("fFeEgGaA");
		d.value = g.longReal();
		break;
	case 5:
		directive += "s";
		d.value = g.text();
		break;
	case 6:
		directive += "p";
		d.value = g.chance(20) ? nullptr : reinterpret_cast<void*>(g.random());
		break;
	case 7:
		directive += g.chance(50) ? "c" : "hhc";
		d.value = int(g.pick(255) + 1);
		break;
	default:
		// No value: %m, or an unknown conversion, which is printed back.
		directive += g.chance(30) ? 'm' : g.oneOf("krvwyKRVWYHQU!&/");
		d.hasValue = false;
		break;
	}
	d.text = directive;
	return d;
}

TEST(FormatLength, NeverFallsShortOfTheCLibraryForSingleDirectives)
{
	FormatGenerator g(20240611);
	for (int i = 0; i < 40000; ++i)
	{
		bool starWidth = false;
		bool starPrecision = false;
		const Directive d = makeDirective(g, true, starWidth, starPrecision);
		const std::string format = g.literal() + d.text + g.literal();
		const int width = g.starValue();
		const int precision = g.starValue();
		// The arguments in order: the star values, then the value.
		auto withStars = [&](auto... value) {
			if (starWidth && starPrecision)
				compareWithC(format, width, precision, value...);
			else if (starWidth)
				compareWithC(format, width, value...);
			else if (starPrecision)
				compareWithC(format, precision, value...);
			else
				compareWithC(format, value...);
		};
		if (d.hasValue)
			std::visit(withStars, d.value);
		else
			withStars(0); // an unused argument keeps the call well-formed
		if (HasFailure())
			return;
	}
}

TEST(FormatLength, NeverFallsShortOfTheCLibraryForSeveralDirectives)
{
	FormatGenerator g(77);
	for (int i = 0; i < 15000; ++i)
	{
		bool unusedW = false;
		bool unusedP = false;
		Directive d[3];
		std::string format = g.literal();
		for (Directive& one : d)
		{
			do
				one = makeDirective(g, false, unusedW, unusedP);
			while (!one.hasValue);
			format += one.text + g.literal();
		}
		std::visit([&](auto a, auto b, auto c) { compareWithC(format, a, b, c); }, d[0].value,
		           d[1].value, d[2].value);
		if (HasFailure())
			return;
	}
}

TEST(FormatLength, FollowsStarsAndPositionsToTheRightArguments)
{
	compareWithC("%*d|%-*s|%.*f", 12, 5, -8, "ab", 3, 2.5);
	compareWithC("%2$s %1$d", 42, "forty-two");
	compareWithC("%1$*2$.*3$f|%1$e", 3.14159, 30, 12);
	compareWithC("%3$s%3$s%1$d%2$c", 7, 'x', "repeated ");
	compareWithC("%*.*s|", 400, 2, "abcdef");
	// An unknown conversion reads no value, but its stars are read.
	compareWithC("%*.*y|%s", 15, 3, "after");
	// ll, L and q are synonyms; so are z and Z.
	compareWithC("%Ld %qd %llf %qf %Zu", 1LL << 60, -(1LL << 60), 1e300L, 1e-300L, size_t(1) << 63);
	compareWithC("%5%|%%|%m|%.3m", 0);
}

TEST(FormatLength, CoversWideCharactersInAMultibyteLocale)
{
	const std::string previous = std::setlocale(LC_ALL, nullptr);
	ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
	compareWithC("%lc|%C|%5lc|%Lc", wint_t(0x263A), wint_t(0x1F600), wint_t(0xE9), wint_t('a'));
	compareWithC("%ls|%S|%.3ls|%-12ls|%zs", L"\u263a\u00e9x", L"plain", L"\u263a\u263a",
	             L"\U0001F600", L"wide");
	compareWithC("%ls", static_cast<const wchar_t*>(nullptr));
	std::setlocale(LC_ALL, previous.c_str());
}

TEST(FormatLength, BoundsGeneralFloatsByTheDigitsADoubleCanHave)
{
	// The precision asks for far more digits than any double has (a few
	// hundred): the length stays small. (The C library takes minutes over a
	// precision of INT_MAX for a double, so a million stands in for it.)
	EXPECT_LT(boundOf("%.*g", 1000000, std::numeric_limits<double>::denorm_min()), 2000u);
	EXPECT_LT(boundOf("%.*Lg", INT_MAX, std::numeric_limits<long double>::max()), 20000u);
	string_ext<char> text;
	EXPECT_EQ(text.sprintf("%.*g", 1000000, 1.5), 3);
	EXPECT_EQ(text, "1.5");
	compareWithC("%.2000g|%.20000Lg", std::numeric_limits<double>::denorm_min(),
	             std::numeric_limits<long double>::denorm_min());
}

TEST(StringExtFormat, RefusesWhatTheCLibraryCannotFormat)
{
	// Formats held in variables, as the compiler would reject them as literals.
	const std::string tooWide = "%2147483648d";
	const std::string cutShort = "abc%";
	const std::string tooPrecise = "%.2147483648f";
	const char* none = nullptr;

	string_ext<char> text("unchanged");
	// Wider than INT_MAX characters: refused before anything is allocated.
	EXPECT_EQ(text.sprintf(tooWide.c_str(), 1), -1);
	EXPECT_TRUE(text.empty());
	EXPECT_EQ(text.sprintf(tooPrecise.c_str(), 1.0), -1);
	// A directive cut short by the end of the format.
	text = "unchanged";
	EXPECT_EQ(text.sprintf(cutShort.c_str(), 1), -1);
	EXPECT_TRUE(text.empty());
	EXPECT_EQ(text.sprintf(none, 1), -1);
}

TEST(StringExtFormat, ANulCharacterEndsTheText)
{
	string_ext<char> text;
	EXPECT_EQ(text.sprintf("%.*g %c", 3, 12.5, 0), 6);
	EXPECT_EQ(text, "12.5 ");
	EXPECT_EQ(text.size(), 5u);
	EXPECT_EQ(text.sprintf("%s%c%s", "ab", 0, "cd"), 5);
	EXPECT_EQ(text, "ab");
}

TEST(StringExtFormat, ReplacesTheContentsAndMayFormatItsOwnText)
{
	string_ext<char> text("first");
	text.sprintf("[%s|%s]", text.c_str(), text.c_str());
	EXPECT_EQ(text, "[first|first]");
	text.sprintf("%d", 7);
	EXPECT_EQ(text, "7");
	const string_ext<char> copy(text);
	EXPECT_EQ(copy, "7");
}

TEST(StringExtFormat, ReleaseBufferTakesTheLengthUpToTheFirstNul)
{
	string_ext<char> text(10, 'x');
	std::memcpy(&text[0], "abc\0def", 7);
	text.releaseBuffer();
	EXPECT_EQ(text, "abc");
	text.releaseBuffer();
	EXPECT_EQ(text, "abc");
	string_ext<char> empty;
	empty.releaseBuffer();
	EXPECT_TRUE(empty.empty());
}

} // namespace
