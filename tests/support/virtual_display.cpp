#include "support/virtual_display.h"

#include <X11/Xlib.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace velora_test {

Display* VirtualDisplay::display = nullptr;

void VirtualDisplay::SetUp()
{
	if (std::getenv("DISPLAY") && (display = XOpenDisplay(nullptr)))
		return;
	start();
	// A failed environment would only skip the tests: the program fails instead.
	if (!display)
	{
		std::fprintf(stderr, "no X server, and Xvfb could not be started\n");
		std::exit(1);
	}
}

void VirtualDisplay::TearDown()
{
	if (display)
		XCloseDisplay(display);
	display = nullptr;
	if (server > 0)
	{
		kill(server, SIGTERM);
		waitpid(server, nullptr, 0);
	}
}

// Xvfb picks a free display itself and writes its number to a pipe once it
// accepts connections: no guessing of numbers and no waiting for it to start.
void VirtualDisplay::start()
{
	int ready[2];
	if (pipe(ready) != 0)
		return;
	server = fork();
	if (server == 0)
	{
		// Not holding the test's output open, and gone if the test dies.
		prctl(PR_SET_PDEATHSIG, SIGTERM);
		close(ready[0]);
		const int quiet = open("/dev/null", O_WRONLY);
		dup2(quiet, STDOUT_FILENO);
		dup2(quiet, STDERR_FILENO);
		const std::string fd = std::to_string(ready[1]);
		execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "640x480x24", "-nolisten",
		       "tcp", static_cast<char*>(nullptr));
		_exit(127);
	}
	close(ready[1]);
	// The number ends with a newline; the pipe stays open until then, or the
	// server fails to write the rest.
	std::string number;
	char c = 0;
	while (server > 0 && read(ready[0], &c, 1) == 1 && c != '\n')
		number += c;
	close(ready[0]);
	if (c == '\n')
	{
		setenv("DISPLAY", (":" + number).c_str(), 1);
		display = XOpenDisplay(nullptr);
	}
}

} // namespace velora_test
