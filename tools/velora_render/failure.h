// How velora-render ends a run that cannot go on: one message for stderr and
// the process's exit status.
#pragma once

#include <stdexcept>
#include <string>

namespace velora_render {

constexpr int kExitRuntime = 1; // a file, the plug-in or the system failed
constexpr int kExitUsage = 2;   // the command line is wrong

class Failure : public std::runtime_error
{
public:
	Failure(int status, const std::string& message) : std::runtime_error(message), code(status) {}
	int status() const { return code; }

private:
	int code;
};

inline Failure usageError(const std::string& message)
{
	return Failure(kExitUsage, message);
}

inline Failure runtimeError(const std::string& message)
{
	return Failure(kExitRuntime, message);
}

} // namespace velora_render
