#include "numbers.h"

#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace velora_render {

std::optional<double> parseReal(const std::string& text)
{
	if (text.empty() || std::isspace(static_cast<unsigned char>(text.front())))
		return std::nullopt;
	char* end = nullptr;
	errno = 0;
	const double value = std::strtod(text.c_str(), &end);
	if (*end != '\0' || errno == ERANGE || !std::isfinite(value))
		return std::nullopt;
	return value;
}

std::optional<long> parseInteger(const std::string& text)
{
	if (text.empty() || std::isspace(static_cast<unsigned char>(text.front())))
		return std::nullopt;
	char* end = nullptr;
	errno = 0;
	const long value = std::strtol(text.c_str(), &end, 10);
	if (*end != '\0' || errno == ERANGE)
		return std::nullopt;
	return value;
}

std::string degreesProblem(const std::string& text, double& degrees)
{
	const auto value = parseReal(text);
	if (!value)
		return "'" + text + "' is not a number of degrees";
	if (*value < kMinDegrees || *value > kMaxDegrees)
		return text + " degrees is outside -90..90";
	degrees = *value;
	return {};
}

std::string formatNumber(double value)
{
	char text[32];
	std::snprintf(text, sizeof text, "%.6g", value);
	return text;
}

} // namespace velora_render
