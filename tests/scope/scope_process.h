// velora-scope or velora-render run as a user runs them: a child process
// whose standard output is read line by line while it runs. Waits are
// bounded, so that a program that never answers fails the test instead of
// hanging it.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace velora_test {

class ToolProcess
{
public:
	// Starts program with args; without a display, DISPLAY is unset for it.
	ToolProcess(const std::string& program, const std::vector<std::string>& args,
	            bool display = true);
	~ToolProcess();

	// The next line of standard output; empty at its end or when none comes.
	std::string line();
	// The first coming line that holds text; empty when none does.
	std::string lineWith(const std::string& text);
	// Waits for the exit: the status, or 128 + signal; -1 when it never came.
	int finish();
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

// Runs a command line through the shell; its standard output.
std::string shell(const std::string& command);

} // namespace velora_test
