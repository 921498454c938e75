#include "osi/text/osiparsenumber.h"

namespace {

// ASCII only, so that the result does not depend on the locale.
bool isLetter(char c)
{
	return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
	return c >= '0' && c <= '9';
}

bool isSign(char c)
{
	return c == '+' || c == '-';
}

const char* skipDigits(const char* p)
{
	while (isDigit(*p))
		++p;
	return p;
}

} // namespace

const char* OsiParseNumber::findAlphaNumeric(const char* text) const
{
	if (!text)
		return nullptr;
	for (const char* p = text; *p; ++p)
	{
		if (!isDigit(*p) || (p != text && isLetter(p[-1])))
			continue;
		return p != text && isSign(p[-1]) ? p - 1 : p;
	}
	return nullptr;
}

bool OsiParseNumber::parseNumber(const char* start, const char*& end)
{
	end = start;
	mantissa.clear();
	exponent.clear();
	if (!start || !*start)
		return false;
	const char* p = start + 1;
	if (isSign(*start) && *p)
		++p;
	p = skipDigits(p);
	mantissa.assign(start, p);
	end = p;
	if (*p != 'e' && *p != 'E')
		return true;
	const char* digits = p + 1;
	if (isSign(*digits))
		++digits;
	end = skipDigits(digits);
	if (end != digits)
		exponent.assign(p + 1, end);
	return true;
}

bool OsiParseNumber::parse(const char* text, const char*& numberStart, const char*& end)
{
	numberStart = findAlphaNumeric(text);
	mantissa.clear();
	exponent.clear();
	return numberStart && parseNumber(numberStart, end);
}
