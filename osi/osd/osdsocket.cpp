#include "osi/osd/osdsocket.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace {

sockaddr_in platformAddress(const OsdSocketAddress& address)
{
	sockaddr_in result{};
	result.sin_family = AF_INET;
	result.sin_addr.s_addr = htonl(address.host);
	result.sin_port = htons(address.port);
	return result;
}

// Flags for send() that keep a closed peer from raising SIGPIPE.
int sendFlags()
{
#if defined(MSG_NOSIGNAL)
	return MSG_NOSIGNAL;
#else
	return 0;
#endif
}

bool wouldBlock(int error)
{
	return error == EAGAIN || error == EWOULDBLOCK;
}

} // namespace

int osdOpenStreamSocket()
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

bool osdSetBlocking(int socket, bool blocking)
{
	const int flags = fcntl(socket, F_GETFL, 0);
	if (flags < 0)
		return false;
	const int wanted = blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK;
	return fcntl(socket, F_SETFL, wanted) == 0;
}

void osdCloseSocket(int socket)
{
	if (socket < 0)
		return;
	shutdown(socket, SHUT_RDWR);
	close(socket);
}

bool osdSocketAddress(const char* address, std::uint16_t port, OsdSocketAddress& result)
{
	in_addr host{};
	if (!address || inet_pton(AF_INET, address, &host) != 1)
		return false;
	result.host = ntohl(host.s_addr);
	result.port = port;
	return true;
}

bool osdBindSocket(int socket, const OsdSocketAddress& address, bool reuseAddress)
{
	const int on = 1;
	if (reuseAddress)
		setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
	const sockaddr_in local = platformAddress(address);
	return bind(socket, reinterpret_cast<const sockaddr*>(&local), sizeof local) == 0;
}

bool osdConnectSocket(int socket, const OsdSocketAddress& address)
{
	const sockaddr_in remote = platformAddress(address);
	return connect(socket, reinterpret_cast<const sockaddr*>(&remote), sizeof remote) == 0;
}

bool osdListenOnSocket(int socket, int backlog)
{
	return listen(socket, backlog) == 0;
}

int osdAcceptOnSocket(int listener, OsdSocketStall& stall)
{
	const int accepted = accept(listener, nullptr, nullptr);
	if (accepted >= 0)
	{
		fcntl(accepted, F_SETFD, FD_CLOEXEC);
		return accepted;
	}
	stall = wouldBlock(errno) || errno == EINTR ? OsdSocketStall::busy : OsdSocketStall::ended;
	return -1;
}

long osdSendOnSocket(int socket, const void* data, long length, OsdSocketStall& stall)
{
	for (;;)
	{
		const ssize_t sent = send(socket, data, static_cast<size_t>(length), sendFlags());
		if (sent > 0)
			return sent;
		if (sent < 0 && errno == EINTR)
			continue;
		const bool busy = sent < 0 && (wouldBlock(errno) || errno == ENOBUFS);
		stall = busy ? OsdSocketStall::busy : OsdSocketStall::ended;
		return 0;
	}
}

long osdReceiveOnSocket(int socket, void* into, long length, OsdSocketStall& stall)
{
	for (;;)
	{
		const ssize_t got = recv(socket, into, static_cast<size_t>(length), 0);
		if (got > 0)
			return got;
		if (got < 0 && errno == EINTR)
			continue;
		stall = got < 0 && wouldBlock(errno) ? OsdSocketStall::busy : OsdSocketStall::ended;
		return 0;
	}
}

bool osdWaitForInput(int socket, int milliseconds)
{
	pollfd watched{socket, POLLIN, 0};
	return poll(&watched, 1, milliseconds) > 0;
}

bool osdPeerHasHungUp(int socket)
{
#if defined(POLLRDHUP)
	const short hangUp = POLLRDHUP | POLLHUP | POLLERR;
#else
	const short hangUp = POLLHUP | POLLERR;
#endif
	pollfd watched{socket, hangUp, 0};
	return poll(&watched, 1, 0) > 0 && (watched.revents & hangUp) != 0;
}
