#include "osi/services/coserviceprovider.h"

#include "osi/osd/osdsocket.h"
#include "osi/osd/osdthread.h"

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
		OsdSocketStall stall = OsdSocketStall::ended;
		const int accepted = osdAcceptOnSocket(listener, stall);
		if (accepted >= 0 || stall == OsdSocketStall::ended)
			return accepted;
		OsdThread::sleep(acceptPauseMilliseconds);
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
	const int listener = osdOpenStreamSocket();
	if (listener < 0)
	{
		std::printf("Error at socket(): %d\n", errno);
		return false;
	}
	unsigned short portNumber = 0;
	OsdSocketAddress local;
	if (!parsePort(port, portNumber) || !osdSocketAddress(address, portNumber, local) ||
	    !osdBindSocket(listener, local, true))
	{
		std::puts("bind() failed.");
		osdCloseSocket(listener);
		return false;
	}
	if (!osdListenOnSocket(listener, 1))
	{
		std::puts("Error listening on socket.");
		osdCloseSocket(listener);
		return false;
	}
	std::printf("Waiting for provider to connect to Address: %s port: %s.\n", address, port);
	std::fflush(stdout);
	osdSetBlocking(listener, false);
	const int accepted = acceptOne(listener);
	osdCloseSocket(listener);
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
