// A tool run as a user runs it, its output read line by line as it comes;
// waits are bounded, so that a program that never answers fails the test.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace velora_test {

// Where a tool runs.
struct ToolSurroundings
{
	bool display = true;    // false: DISPLAY is unset for it
	std::string folder;     // its working folder; empty: this one's
	long fileSizeLimit = 0; // bytes; writes past it fail, as on a full disk
};

class ToolProcess
{
public:
	// Starts program (a path, or a name on PATH) with args.
	ToolProcess(const std::string& program, const std::vector<std::string>& args,
	            const ToolSurroundings& surroundings = {});
	~ToolProcess();
	ToolProcess(const ToolProcess&) = delete;
	ToolProcess& operator=(const ToolProcess&) = delete;

	// The next line of standard output; empty at its end or when none comes.
	std::string line();
	// The first coming line that holds text; empty when none does.
	std::string lineWith(const std::string& text);
	// Waits for the exit: the status, or 128 + signal; -1 when it never came.
	int finish();
	// Sends it a signal.
	void signal(int number) const;
	// What it wrote to standard error, read once it has finished.
	const std::string& errors() const { return err; }
	// The rest of standard output, read once it has finished.
	const std::string& rest() const { return pending; }

private:
	bool readMore(int fd, std::string& into);

	pid_t pid = -1;
	int outFd = -1;
	int errFd = -1;
	std::string pending;
	std::string err;
};

} // namespace velora_test
