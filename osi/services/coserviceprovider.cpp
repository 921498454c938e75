#include "osi/services/coserviceprovider.h"

#include "osi/services/cosocket.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int acceptPauseMilliseconds = 100;

bool parsePort(const char* text, unsigned short& port)
{
	if (!text || !*text)
		return false;
	char* end = nullptr;
	const long value = std::strtol(text, &end, 10);
	if (*end != '\0' || value < 1 || value > 65535)
		return false;
	port = static_cast<unsigned short>(value);
	return true;
}

// Polls the listening socket until a connection comes; -1 on an error.
int acceptOne(int listener)
{
	for (;;)
	{
		const int accepted = accept(listener, nullptr, nullptr);
		if (accepted >= 0)
		{
			fcntl(accepted, F_SETFD, FD_CLOEXEC);
			return accepted;
		}
		if (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR)
			return -1;
		osiSleepMilliseconds(acceptPauseMilliseconds);
	}
}

} // namespace

OsiServiceProvider::OsiServiceProvider(int argc, char** argv, bool blocking) : OsiIPCommsBase(true)
{
	if (argc >= 3 && argv)
		open(argv[1], argv[2], blocking);
}

OsiServiceProvider::OsiServiceProvider(const char* address, const char* port, bool blocking)
: OsiIPCommsBase(true)
{
	open(address, port, blocking);
}

OsiServiceProvider::~OsiServiceProvider()
{
	close();
}

bool OsiServiceProvider::open(const char* address, const char* port, bool blocking)
{
	if (isConnected())
		return false;
	const int listener = osiOpenStreamSocket();
	if (listener < 0)
	{
		std::printf("Error at socket(): %d\n", errno);
		return false;
	}
	const int on = 1;
	setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
	unsigned short portNumber = 0;
	sockaddr_in local;
	if (!parsePort(port, portNumber) || !osiSocketAddress(address, portNumber, local) ||
	    bind(listener, reinterpret_cast<sockaddr*>(&local), sizeof local) != 0)
	{
		std::puts("bind() failed.");
		::close(listener);
		return false;
	}
	if (listen(listener, 1) != 0)
	{
		std::puts("Error listening on socket.");
		::close(listener);
		return false;
	}
	std::printf("Waiting for provider to connect to Address: %s port: %s.\n", address, port);
	std::fflush(stdout);
	osiSetBlocking(listener, false);
	const int accepted = acceptOne(listener);
	::close(listener);
	if (accepted < 0)
		return false;
	std::printf("Provider Connected to Address: %s port: %s.\n", address, port);
	std::fflush(stdout);
	return attachSocket(accepted, blocking);
}

void OsiServiceProvider::close()
{
	closeConnection();
}
