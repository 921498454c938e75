// Strict reading of numbers from command-line and file text: the whole text
// must be the number, and only finite values count.
#pragma once

#include <optional>
#include <string>

namespace velora_render {

constexpr double kMinDegrees = -90.0;
constexpr double kMaxDegrees = 90.0;

std::optional<double> parseReal(const std::string& text);
std::optional<long> parseInteger(const std::string& text);

// Checks a pan angle; the message says what is wrong with it (empty if it is
// a number of degrees within -90..90).
std::string degreesProblem(const std::string& text, double& degrees);

// A number for messages and reports, without trailing zeros ("-90", "0.25").
std::string formatNumber(double value);

} // namespace velora_render
