// Formatting into a string_ext: the text is written into storage sized by an
// upper bound of its length, computed by walking the format the way the C
// library's printf does (GNU C library conventions included: positional
// arguments, the ' and I flags, %m, %b and the L/q/ll synonyms).
#include "osi/base/string_ext.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <limits>
#include <vector>

namespace {

// Widths and precisions beyond INT_MAX make the C library fail; any bound
// above INT_MAX therefore means "cannot be formatted".
constexpr size_t kTooLong = size_t(INT_MAX) + 1;
// The highest argument position the C library accepts (NL_ARGMAX).
constexpr size_t kMaxPosition = 4096;
// Digits printed by %g without '#' for any finite double or long double:
// at most 767 (11505) significant digits of an exact binary fraction and at
// most 309 (4933) integer digits, with room to spare.
constexpr size_t kDoubleDigits = 1100;
constexpr size_t kLongDoubleDigits = 16500;

enum class Length
{
	None,
	Char,     // hh
	Short,    // h
	Long,     // l
	LongLong, // ll, L, q
	IntMax,   // j
	Size,     // z, Z
	PtrDiff,  // t
};

enum class ArgType
{
	Int,
	Long,
	LongLong,
	IntMax,
	Size,
	PtrDiff,
	Double,
	LongDouble,
	Pointer,
	WideChar,
};

union Arg
{
	long long integer;
	long double real;
	const void* pointer;
};

// One conversion: its flags, width, precision, length and the argument
// positions it reads (-1 for none).
struct Directive
{
	bool alternate = false;
	bool group = false;
	bool localDigits = false;
	size_t width = 0;
	long long precision = -1;
	int widthArg = -1;
	int precisionArg = -1;
	int valueArg = -1;
	Length length = Length::None;
	char conversion = 0;
};

size_t readNumber(const char*& p)
{
	size_t value = 0;
	for (; *p >= '0' && *p <= '9'; ++p)
		value = std::min(value * 10 + size_t(*p - '0'), kTooLong);
	return value;
}

// An explicit argument position ("3$"), or 0 when there is none; p moves
// past it only when there is one.
size_t readPosition(const char*& p)
{
	const char* q = p;
	const size_t position = readNumber(q);
	if (q == p || *q != '$' || position == 0)
		return 0;
	p = q + 1;
	return position;
}

bool isWide(Length length)
{
	// The GNU library takes ll, L, q, j, z and t like l for %c and %s.
	return length != Length::None && length != Length::Char && length != Length::Short;
}

ArgType integerType(Length length)
{
	switch (length)
	{
	case Length::Long:
		return ArgType::Long;
	case Length::LongLong:
		return ArgType::LongLong;
	case Length::IntMax:
		return ArgType::IntMax;
	case Length::Size:
		return ArgType::Size;
	case Length::PtrDiff:
		return ArgType::PtrDiff;
	default:
		return ArgType::Int;
	}
}

// The argument a conversion reads, or false for none (%%, %m, unknown).
bool valueType(const Directive& d, ArgType& type)
{
	switch (d.conversion)
	{
	case 'd':
	case 'i':
	case 'o':
	case 'u':
	case 'x':
	case 'X':
	case 'b':
	case 'B':
		type = integerType(d.length);
		return true;
	case 'f':
	case 'F':
	case 'e':
	case 'E':
	case 'g':
	case 'G':
	case 'a':
	case 'A':
		type = d.length == Length::LongLong ? ArgType::LongDouble : ArgType::Double;
		return true;
	case 'c':
		type = isWide(d.length) ? ArgType::WideChar : ArgType::Int;
		return true;
	case 'C':
		type = ArgType::WideChar;
		return true;
	case 's':
	case 'S':
	case 'p':
	case 'n':
		type = ArgType::Pointer;
		return true;
	default:
		return false;
	}
}

Length readLength(const char*& p)
{
	switch (*p)
	{
	case 'h':
		return *++p == 'h' ? (++p, Length::Char) : Length::Short;
	case 'l':
		return *++p == 'l' ? (++p, Length::LongLong) : Length::Long;
	case 'L':
	case 'q':
		return ++p, Length::LongLong;
	case 'j':
		return ++p, Length::IntMax;
	case 'z':
	case 'Z':
		return ++p, Length::Size;
	case 't':
		return ++p, Length::PtrDiff;
	default:
		return Length::None;
	}
}

// Splits the format into literal characters and directives, numbering the
// arguments that each directive reads and recording their types.
class FormatParser
{
public:
	// False when an argument position is out of range.
	bool parse(const char* format, std::vector<Directive>& directives, size_t& literal,
	           std::vector<ArgType>& types)
	{
		this->types = &types;
		literal = 0;
		for (const char* p = format; *p;)
		{
			if (*p != '%' || p[1] == '%')
			{
				++literal;
				p += *p == '%' ? 2 : 1;
				continue;
			}
			++p;
			directives.emplace_back();
			if (!parseDirective(p, directives.back()))
				return false;
		}
		return true;
	}

private:
	bool parseDirective(const char*& p, Directive& d)
	{
		const size_t position = readPosition(p);
		readFlags(p, d);
		if (!readStarOrNumber(p, d.width, d.widthArg))
			return false;
		if (*p == '.')
		{
			++p;
			size_t precision = 0;
			if (!readStarOrNumber(p, precision, d.precisionArg))
				return false;
			d.precision = static_cast<long long>(precision);
		}
		d.length = readLength(p);
		d.conversion = *p;
		if (*p)
			++p;
		ArgType type;
		if (valueType(d, type))
			d.valueArg = claim(position, type);
		return d.valueArg != -2;
	}

	static void readFlags(const char*& p, Directive& d)
	{
		for (;; ++p)
		{
			switch (*p)
			{
			case '#':
				d.alternate = true;
				break;
			case '\'':
				d.group = true;
				break;
			case 'I':
				d.localDigits = true;
				break;
			case '-':
			case '+':
			case ' ':
			case '0':
				break;
			default:
				return;
			}
		}
	}

	// A width or precision: '*' with an optional position (its value comes
	// from an int argument), or digits.
	bool readStarOrNumber(const char*& p, size_t& value, int& arg)
	{
		if (*p != '*')
		{
			value = readNumber(p);
			return true;
		}
		++p;
		arg = claim(readPosition(p), ArgType::Int);
		return arg >= 0;
	}

	// The index of the argument at position (1-based; 0: the next one in
	// sequence), or -2 when the position is out of range.
	int claim(size_t position, ArgType type)
	{
		const size_t index = position ? position - 1 : next;
		if (index >= kMaxPosition)
			return -2;
		next = index + 1;
		if (types->size() <= index)
			types->resize(index + 1, ArgType::Int);
		(*types)[index] = type;
		return static_cast<int>(index);
	}

	std::vector<ArgType>* types = nullptr;
	size_t next = 0;
};

// Through a pointer, so that the caller's list moves on with each argument.
void fetch(ArgType type, va_list* args, Arg& arg)
{
	switch (type)
	{
	case ArgType::Int:
		arg.integer = va_arg(*args, int);
		break;
	case ArgType::Long:
		arg.integer = va_arg(*args, long);
		break;
	case ArgType::LongLong:
		arg.integer = va_arg(*args, long long);
		break;
	case ArgType::IntMax:
		arg.integer = static_cast<long long>(va_arg(*args, intmax_t));
		break;
	case ArgType::Size:
		arg.integer = static_cast<long long>(va_arg(*args, size_t));
		break;
	case ArgType::PtrDiff:
		arg.integer = va_arg(*args, ptrdiff_t);
		break;
	case ArgType::Double:
		arg.real = va_arg(*args, double);
		break;
	case ArgType::LongDouble:
		arg.real = va_arg(*args, long double);
		break;
	case ArgType::Pointer:
		arg.pointer = va_arg(*args, const void*);
		break;
	case ArgType::WideChar:
		arg.integer = va_arg(*args, wint_t);
		break;
	}
}

// The sizes of the locale's thousands separator and decimal point.
struct Punctuation
{
	Punctuation()
	{
		const lconv* locale = std::localeconv();
		separator = std::strlen(locale->thousands_sep);
		point = std::max<size_t>(std::strlen(locale->decimal_point), 1);
	}

	size_t separator;
	size_t point;
};

// Bounds the text of one directive once its arguments are known.
class DirectiveBound
{
public:
	DirectiveBound(const Directive& d, const std::vector<Arg>& args, const Punctuation& punctuation)
	: d(d),
	  args(args),
	  separator(punctuation.separator),
	  point(punctuation.point)
	{
		digitBytes = d.localDigits ? MB_CUR_MAX : 1;
		width = d.width;
		if (d.widthArg >= 0)
		{
			// A negative width means left adjustment of its magnitude.
			const long long w = args[size_t(d.widthArg)].integer;
			width = size_t(w < 0 ? -w : w);
		}
		precision = d.precision;
		if (d.precisionArg >= 0)
			precision = args[size_t(d.precisionArg)].integer; // negative: none
	}

	size_t bound() const { return std::max(width, body()); }

private:
	size_t body() const
	{
		switch (d.conversion)
		{
		case 'd':
		case 'i':
		case 'u':
			return integer(20);
		case 'o':
			return integer(22);
		case 'x':
		case 'X':
			return integer(16);
		case 'b':
		case 'B':
			return integer(64);
		case 'f':
		case 'F':
			return fixed();
		case 'e':
		case 'E':
			return exponential(givenPrecision(6));
		case 'g':
		case 'G':
			return general();
		case 'a':
		case 'A':
			return hexadecimal();
		case 'c':
			return isWide(d.length) ? MB_CUR_MAX : 1;
		case 'C':
			return MB_CUR_MAX;
		case 's':
			return isWide(d.length) ? wideString()
			                        : narrowString(static_cast<const char*>(value().pointer));
		case 'S':
			return wideString();
		case 'p':
			return value().pointer ? 3 + std::max<size_t>(givenPrecision(0), 16) : 5;
		case 'n':
			return 0;
		case 'm':
			return narrowString(std::strerror(errno));
		default:
			// An unknown conversion is printed back as written: '%', flags,
			// width and precision as numbers, and the conversion.
			return 32;
		}
	}

	const Arg& value() const { return args[size_t(d.valueArg)]; }
	size_t givenPrecision(size_t fallback) const
	{
		return precision < 0 ? fallback : size_t(precision);
	}
	size_t grouping(size_t digits) const { return d.group ? digits * separator : 0; }
	size_t digits(size_t count) const { return count * digitBytes + grouping(count); }

	// Sign or prefix ("0x", "0b", "0"), then at least the precision in digits.
	size_t integer(size_t maxDigits) const
	{
		return 2 + digits(std::max(givenPrecision(0), maxDigits));
	}

	size_t fixed() const
	{
		const long double magnitude = std::fabs(value().real);
		if (!std::isfinite(magnitude))
			return 4; // "-inf", "-nan"
		// One more integer digit than the value has, for rounding up.
		const size_t whole = magnitude < 1 ? 1 : size_t(std::log10(magnitude)) + 2;
		return 1 + digits(whole) + point + givenPrecision(6) * digitBytes;
	}

	// Sign, one digit, point, the fraction, 'e', the exponent's sign and up
	// to five exponent digits.
	size_t exponential(size_t fraction) const
	{
		return 1 + (1 + fraction + 5) * digitBytes + point + 2;
	}

	size_t general() const
	{
		size_t significant = std::max<size_t>(givenPrecision(6), 1);
		if (!d.alternate)
		{
			const bool longDouble = d.length == Length::LongLong;
			significant = std::min(significant, longDouble ? kLongDoubleDigits : kDoubleDigits);
		}
		// The fixed form, even with its leading zeros ("0.000123"), is no
		// longer than the exponential one with room for five exponent digits.
		return exponential(significant) + grouping(significant);
	}

	size_t hexadecimal() const
	{
		const size_t mantissa = d.length == Length::LongLong ? 16 : 13;
		const size_t fraction = std::max(givenPrecision(0), mantissa);
		return 1 + 2 + 1 + point + fraction + 2 + 5;
	}

	size_t narrowString(const char* text) const
	{
		if (!text)
			return 6; // "(null)"
		return precision < 0 ? std::strlen(text) : strnlen(text, size_t(precision));
	}

	size_t wideString() const
	{
		const auto* text = static_cast<const wchar_t*>(value().pointer);
		if (!text)
			return 6;
		const size_t count = precision < 0 ? std::wcslen(text) : wcsnlen(text, size_t(precision));
		const size_t bytes = count * MB_CUR_MAX;
		return precision < 0 ? bytes : std::min(bytes, size_t(precision));
	}

	const Directive& d;
	const std::vector<Arg>& args;
	size_t separator;
	size_t point;
	size_t digitBytes = 1;
	size_t width = 0;
	long long precision = -1;
};

} // namespace

template <> size_t string_ext<char>::formatLength(const char* format, va_list args) const
{
	if (!format)
		return 0;
	// The walk's working storage, kept per thread so that formatting a short
	// text allocates nothing but the text.
	thread_local std::vector<Directive> directives;
	thread_local std::vector<ArgType> types;
	thread_local std::vector<Arg> values;
	directives.clear();
	types.clear();
	size_t length = 0;
	if (!FormatParser().parse(format, directives, length, types))
		return kTooLong;

	values.assign(types.size(), Arg{});
	va_list walk;
	va_copy(walk, args);
	for (size_t i = 0; i < types.size(); ++i)
		fetch(types[i], &walk, values[i]);
	va_end(walk);

	const Punctuation punctuation;
	for (const Directive& directive : directives)
	{
		length += DirectiveBound(directive, values, punctuation).bound();
		if (length >= kTooLong)
			return kTooLong;
	}
	return length;
}

template <> int string_ext<char>::vsprintf(const char* format, va_list args)
{
	const int error = errno;
	const size_t length = format ? formatLength(format, args) : kTooLong;
	if (length >= kTooLong)
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
