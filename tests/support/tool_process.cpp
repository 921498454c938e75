#include "support/tool_process.h"

#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace velora_test {
namespace {
// Generous for a loaded machine: the bound only keeps a broken run from hanging.
constexpr int kWaitMs = 60000;
} // namespace

ToolProcess::ToolProcess(const std::string& program, const std::vector<std::string>& args,
                         const ToolSurroundings& surroundings)
{
	int out[2];
	int errors[2];
	if (pipe(out) != 0 || pipe(errors) != 0)
		return;
	pid = fork();
	if (pid == 0)
	{
		dup2(out[1], STDOUT_FILENO);
		dup2(errors[1], STDERR_FILENO);
		close(out[0]);
		close(errors[0]);
		if (!surroundings.display)
			unsetenv("DISPLAY");
		if (!surroundings.folder.empty() && chdir(surroundings.folder.c_str()) != 0)
			_exit(127);
		if (surroundings.fileSizeLimit > 0)
		{
			// A write past the limit then fails with EFBIG instead of killing.
			::signal(SIGXFSZ, SIG_IGN);
			const rlim_t bytes = static_cast<rlim_t>(surroundings.fileSizeLimit);
			const rlimit limit{bytes, bytes};
			setrlimit(RLIMIT_FSIZE, &limit);
		}
		std::vector<char*> argv{const_cast<char*>(program.c_str())};
		for (const auto& a : args)
			argv.push_back(const_cast<char*>(a.c_str()));
		argv.push_back(nullptr);
		execvp(program.c_str(), argv.data());
		_exit(127);
	}
	close(out[1]);
	close(errors[1]);
	outFd = out[0];
	errFd = errors[0];
}

ToolProcess::~ToolProcess()
{
	if (pid > 0)
	{
		kill(pid, SIGKILL);
		waitpid(pid, nullptr, 0);
	}
	if (outFd >= 0)
		close(outFd);
	if (errFd >= 0)
		close(errFd);
}

void ToolProcess::signal(int number) const
{
	kill(pid, number);
}

bool ToolProcess::readMore(int fd, std::string& into)
{
	pollfd p{fd, POLLIN, 0};
	if (poll(&p, 1, kWaitMs) <= 0)
		return false;
	char buffer[4096];
	const ssize_t n = read(fd, buffer, sizeof buffer);
	if (n <= 0)
		return false;
	into.append(buffer, static_cast<size_t>(n));
	return true;
}

std::string ToolProcess::line()
{
	size_t end;
	while ((end = pending.find('\n')) == std::string::npos)
		if (!readMore(outFd, pending))
			return "";
	const std::string first = pending.substr(0, end);
	pending.erase(0, end + 1);
	return first;
}

std::string ToolProcess::lineWith(const std::string& text)
{
	for (std::string l = line(); !l.empty(); l = line())
		if (l.find(text) != std::string::npos)
			return l;
	return "";
}

int ToolProcess::finish()
{
	while (readMore(outFd, pending))
		;
	while (readMore(errFd, err))
		;
	// Standard error still open: the program runs on, left to the destructor.
	pollfd p{errFd, POLLIN, 0};
	if (poll(&p, 1, 0) != 1 || !(p.revents & POLLHUP))
		return -1;
	int status = 0;
	const pid_t done = waitpid(pid, &status, 0);
	pid = -1;
	if (done <= 0)
		return -1;
	return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace velora_test
