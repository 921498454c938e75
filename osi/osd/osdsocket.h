// TCP sockets over IPv4, as the service transport uses them: descriptors (-1
// for none), an address record of the framework's own, and transfers that say
// whether a socket was merely busy or its connection has ended.
#pragma once

#include <cstdint>

// An IPv4 address and a port, both in host byte order.
struct OsdSocketAddress
{
	std::uint32_t host = 0;
	std::uint16_t port = 0;
};

// Why a transfer or an accept moved nothing: the socket would have to wait
// (for a send also: the system is short of buffers), or the connection has
// ended or failed.
enum class OsdSocketStall
{
	busy,
	ended
};

// A TCP socket that programs started later do not inherit and whose writes
// never raise SIGPIPE; -1 with errno set on failure.
int osdOpenStreamSocket();
bool osdSetBlocking(int socket, bool blocking);
// Shuts the socket down both ways and closes it; nothing for -1.
void osdCloseSocket(int socket);

// An IPv4 address in dotted form with a port; false when the text is not one.
bool osdSocketAddress(const char* address, std::uint16_t port, OsdSocketAddress& result);
// Binds the socket to the address; with reuseAddress a port whose previous
// connections are still closing can be bound again.
bool osdBindSocket(int socket, const OsdSocketAddress& address, bool reuseAddress);
bool osdConnectSocket(int socket, const OsdSocketAddress& address);
bool osdListenOnSocket(int socket, int backlog);
// A connection taken from a listening socket (not inherited by programs
// started later), or -1 with the reason.
int osdAcceptOnSocket(int listener, OsdSocketStall& stall);

// Sends or receives up to length bytes: the number moved (at least 1), or 0
// with the reason. An interrupted call is repeated.
long osdSendOnSocket(int socket, const void* data, long length, OsdSocketStall& stall);
long osdReceiveOnSocket(int socket, void* into, long length, OsdSocketStall& stall);
// Waits up to the time-out for bytes (or the end of the connection) to arrive.
bool osdWaitForInput(int socket, int milliseconds);
// Whether the peer has ended its side of the connection or the connection has
// failed, without waiting; bytes it sent before may still be there to read.
bool osdPeerHasHungUp(int socket);
