#include "osi/services/cosocket.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <thread>

int osiOpenStreamSocket()
{
	const int handle = socket(AF_INET, SOCK_STREAM, 0);
	if (handle < 0)
		return -1;
	fcntl(handle, F_SETFD, FD_CLOEXEC);
	// Whole packets go out in one write: waiting to coalesce them only delays
	// the answer to a ping or a request.
	const int on = 1;
	setsockopt(handle, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
#if defined(__APPLE__)
	setsockopt(handle, SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
	return handle;
}

bool osiSetBlocking(int socket, bool blocking)
{
	const int flags = fcntl(socket, F_GETFL, 0);
	if (flags < 0)
		return false;
	const int wanted = blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK;
	return fcntl(socket, F_SETFL, wanted) == 0;
}

void osiCloseSocket(int socket)
{
	if (socket < 0)
		return;
	shutdown(socket, SHUT_RDWR);
	close(socket);
}

bool osiSocketAddress(const char* address, unsigned short port, sockaddr_in& result)
{
	std::memset(&result, 0, sizeof result);
	result.sin_family = AF_INET;
	result.sin_port = htons(port);
	return address && inet_pton(AF_INET, address, &result.sin_addr) == 1;
}

int osiSendFlags()
{
#if defined(MSG_NOSIGNAL)
	return MSG_NOSIGNAL;
#else
	return 0;
#endif
}

void osiSleepMilliseconds(int milliseconds)
{
	std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
