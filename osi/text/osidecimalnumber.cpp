#include "osi/text/osidecimalnumber.h"

#include <clocale>
#include <cstdint>
#include <cstdio>

namespace {

constexpr uint64_t kLargestExact = uint64_t(1) << 53;
constexpr int kLargestExactPower = 22;
// 10^0 .. 10^22, each exact in a double.
constexpr double kPowersOfTen[kLargestExactPower + 1] = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// Exponents beyond this stop counting: the text is then outside the exact
// range whatever its digits.
constexpr int64_t kExponentCap = 100000;

bool isBlank(char c)
{
	return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

bool isDigit(char c)
{
	return c >= '0' && c <= '9';
}

// Takes in the digits from p on, as long as the integer stays exact.
bool takeDigits(const char*& p, uint64_t& digits, int64_t& count)
{
	for (; isDigit(*p); ++p, ++count)
	{
		const auto digit = static_cast<uint64_t>(*p - '0');
		if (digits > (kLargestExact - digit) / 10)
			return false;
		digits = digits * 10 + digit;
	}
	return true;
}

// The C library reads the point of the current locale; the direct
// conversion knows only '.'.
bool localePointIsDot()
{
	const char* point = std::localeconv()->decimal_point;
	return point[0] == '.' && point[1] == 0;
}

} // namespace

bool OsiDecimalNumber::scan(const char* text, double& value)
{
	return convertExactly(text, value) || std::sscanf(text, "%lg", &value) == 1;
}

bool OsiDecimalNumber::convertExactly(const char* text, double& value)
{
	const char* p = text;
	while (isBlank(*p))
		++p;
	const bool negative = *p == '-';
	if (*p == '-' || *p == '+')
		++p;
	uint64_t digits = 0;
	int64_t whole = 0;
	int64_t fraction = 0;
	if (!takeDigits(p, digits, whole))
		return false;
	if (*p == '.')
	{
		if (!localePointIsDot() || !takeDigits(++p, digits, fraction))
			return false;
	}
	if (whole + fraction == 0)
		return false;
	int64_t power = -fraction;
	if (*p == 'e' || *p == 'E')
	{
		++p;
		const bool negativeExponent = *p == '-';
		if (*p == '-' || *p == '+')
			++p;
		// An exponent without digits is left to the C library, which reads
		// the number before it.
		if (!isDigit(*p))
			return false;
		int64_t exponent = 0;
		for (; isDigit(*p); ++p)
			exponent = exponent < kExponentCap ? exponent * 10 + (*p - '0') : exponent;
		power += negativeExponent ? -exponent : exponent;
	}
	while (isBlank(*p))
		++p;
	if (*p || power < -kLargestExactPower || power > kLargestExactPower)
		return false;
	const double magnitude = static_cast<double>(digits);
	const double exact =
	    power < 0 ? magnitude / kPowersOfTen[-power] : magnitude * kPowersOfTen[power];
	value = negative ? -exact : exact;
	return true;
}
