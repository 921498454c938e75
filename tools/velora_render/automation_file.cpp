#include "automation_file.h"

#include "failure.h"
#include "numbers.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace velora_render {
namespace {

std::vector<std::string> fieldsOf(std::string line)
{
	const auto comment = line.find('#');
	if (comment != std::string::npos)
		line.erase(comment);
	std::istringstream words(line);
	std::vector<std::string> fields;
	for (std::string word; words >> word;)
		fields.push_back(word);
	return fields;
}

} // namespace

PanCurve parseAutomation(std::istream& in, const std::string& name)
{
	std::vector<PanCurve::Point> points;
	std::string line;
	for (int number = 1; std::getline(in, line); ++number)
	{
		const auto fail = [&](const std::string& what) {
			return runtimeError(name + ":" + std::to_string(number) + ": " + what);
		};
		const auto fields = fieldsOf(line);
		if (fields.empty())
			continue;
		if (fields.size() != 2)
			throw fail("expected 'seconds degrees', found " + std::to_string(fields.size()) +
			           (fields.size() == 1 ? " field" : " fields"));
		const auto seconds = parseReal(fields[0]);
		if (!seconds || *seconds < 0.0)
			throw fail("'" + fields[0] + "' is not a time in seconds (0 or more)");
		if (!points.empty() && *seconds < points.back().seconds)
			throw fail("time " + fields[0] + " comes before the previous point's " +
			           formatNumber(points.back().seconds));
		double degrees = 0.0;
		const std::string problem = degreesProblem(fields[1], degrees);
		if (!problem.empty())
			throw fail(problem);
		points.push_back({*seconds, degrees});
	}
	if (in.bad())
		throw runtimeError("cannot read automation file '" + name + "'");
	if (points.empty())
		throw runtimeError(name + ": no automation points (lines of 'seconds degrees')");
	return PanCurve(std::move(points));
}

PanCurve readAutomation(const std::string& path)
{
	std::error_code error;
	if (std::filesystem::is_directory(path, error))
		throw runtimeError("cannot read automation file '" + path + "': it is a directory");
	std::ifstream in(path);
	if (!in)
		throw runtimeError("cannot read automation file '" + path + "': " + std::strerror(errno));
	return parseAutomation(in, path);
}

} // namespace velora_render
