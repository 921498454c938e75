// Helpers over BSD sockets shared by the two ends of the service transport.
#pragma once

#include <netinet/in.h>

// A TCP socket that programs started later do not inherit and whose writes
// never raise SIGPIPE; -1 with errno set on failure.
int osiOpenStreamSocket();
bool osiSetBlocking(int socket, bool blocking);
// Shuts the socket down both ways and closes it; nothing for -1.
void osiCloseSocket(int socket);
// An IPv4 address in dotted form with a port; false when the text is not one.
bool osiSocketAddress(const char* address, unsigned short port, sockaddr_in& result);
// Flags for send() that keep a closed peer from raising SIGPIPE.
int osiSendFlags();
void osiSleepMilliseconds(int milliseconds);
