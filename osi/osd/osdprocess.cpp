#include "osi/osd/osdprocess.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

OsdProcessId osdStartProgram(const char* executable, char* const arguments[])
{
	std::fflush(nullptr);
	const pid_t child = fork();
	if (child == 0)
	{
		execvp(executable, arguments);
		_exit(-1);
	}
	return child < 0 ? -1 : child;
}

bool osdProcessHasEnded(OsdProcessId child)
{
	return child > 0 && waitpid(child, nullptr, WNOHANG) == child;
}

void osdKillProcess(OsdProcessId child)
{
	if (child <= 0)
		return;
	kill(child, SIGKILL);
	waitpid(child, nullptr, 0);
}
