#include "osi/services/coservice.h"

#include "osi/osd/osdthread.h"

#include <cerrno>
#include <cstdio>
#include <string>

std::atomic<std::uint16_t> OsiService::NextPort{27015};

namespace {

constexpr const char* loopbackAddress = "127.0.0.1";
constexpr int connectPauseMilliseconds = 100;
constexpr int connectAttempts = 300;
constexpr int childPollMilliseconds = 10;

// A path with a blank travels quoted as the child's argument zero.
std::string argumentZeroOf(const std::string& program)
{
	if (program.find(' ') == std::string::npos || program[0] == '"')
		return program;
	return '"' + program + '"';
}

// The file to execute: the path without the quotes around it.
std::string executableOf(const std::string& program)
{
	if (program.size() >= 2 && program.front() == '"' && program.back() == '"')
		return program.substr(1, program.size() - 2);
	return program;
}

// Counts nested notification passes, also when a callback throws.
class Nesting
{
public:
	explicit Nesting(int& depth) : depth(++depth) {}
	~Nesting() { --depth; }
	bool isOutermost() const { return depth == 1; }

private:
	int& depth;
};

} // namespace

OsiService::OsiService(const char* program, bool blocking) : OsiIPCommsBase(true)
{
	if (program)
		open(program, blocking);
}

OsiService::~OsiService()
{
	close(closeWaitMilliseconds);
}

unsigned short OsiService::findPort(const char* address)
{
	OsdSocketAddress target;
	if (!osdSocketAddress(address, 0, target))
		return noPort;
	const int handle = osdOpenStreamSocket();
	if (handle < 0)
		return noPort;
	unsigned short found = noPort;
	for (int attempt = 0; attempt < portsTried && found == noPort; ++attempt)
	{
		const std::uint16_t port = NextPort.fetch_add(1);
		// Port 0 would bind any free port, and 65535 reads as failure.
		if (port == 0 || port == noPort)
			continue;
		target.port = port;
		if (osdBindSocket(handle, target, false))
			found = port;
	}
	// Only the counter reserves the port: the service program binds it.
	osdCloseSocket(handle);
	return found;
}

bool OsiService::open(const char* program, bool blocking)
{
	if (!program || !*program || isConnected())
		return false;
	const std::string path = program;
	std::string argumentZero = argumentZeroOf(path);
	const std::string executable = executableOf(path);
	const unsigned short port = findPort(loopbackAddress);
	std::string address = loopbackAddress;
	std::string portText = std::to_string(port);
	std::printf("Connecting to %s Address: %s port: %s.\n", program, address.c_str(),
	            portText.c_str());
	char* arguments[] = {argumentZero.data(), address.data(), portText.data(), nullptr};
	const OsdProcessId started =
	    port == noPort ? -1 : osdStartProgram(executable.c_str(), arguments);
	if (started < 0)
	{
		std::printf("Failed to open service %s.\n", program);
		return false;
	}
	child = started;
	osdSocketAddress(loopbackAddress, port, serviceAddress);
	if (!connectService(serviceAddress, connectPauseMilliseconds, connectAttempts))
	{
		endChild(0);
		std::printf("%s Failed to connect.\n", program);
		return false;
	}
	std::printf("%s Connected.\n", program);
	setBlocking(blocking);
	return true;
}

bool OsiService::connectService(const OsdSocketAddress& address, int delayMilliseconds,
                                int attempts)
{
	for (int attempt = 0; attempt < attempts; ++attempt)
	{
		OsdThread::sleep(static_cast<unsigned int>(delayMilliseconds));
		if (childHasEnded())
			return false;
		const int handle = osdOpenStreamSocket();
		if (handle < 0)
		{
			std::printf("Error at socket(): %d\n", errno);
			return false;
		}
		if (osdConnectSocket(handle, address))
			return attachSocket(handle, true);
		osdCloseSocket(handle);
	}
	return false;
}

void OsiService::close(int milliseconds)
{
	closeConnection();
	endChild(milliseconds);
}

bool OsiService::childHasEnded()
{
	if (!osdProcessHasEnded(child))
		return false;
	child = -1;
	return true;
}

void OsiService::endChild(int milliseconds)
{
	for (int waited = 0; child > 0 && waited < milliseconds; waited += childPollMilliseconds)
	{
		if (childHasEnded())
			return;
		OsdThread::sleep(childPollMilliseconds);
	}
	if (child <= 0 || childHasEnded())
		return;
	osdKillProcess(child);
	child = -1;
}

void OsiService::addNotification(OsiServiceNotificationCallbackInstance* member)
{
	notifications.link(member);
}

void OsiService::processNotifications()
{
	Nesting nesting(notifying);
	if (!nesting.isOutermost())
		return;
	int id = 0;
	int length = 0;
	int remaining = 0;
	void* data = nullptr;
	while (receive(id, length, data, remaining))
	{
		OsiServiceMessage message{id, length, data};
		notifications.notify(&message);
		if (remaining == 0)
			break;
	}
}
