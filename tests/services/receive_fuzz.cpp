// Arbitrary bytes from a peer, fed through a socket pair to the transport's
// reader in pieces of changing size. Whatever arrives, the reader must not
// read outside its buffers, allocate what a header merely claims or loop
// forever, and every message it hands out must be readable to its end.
#include "osi/osd/osdsocket.h"
#include "osi/services/coipcomms.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

const size_t pieceSizes[] = {1, 7, 32, 33, 4096, 70000};

// Takes away what the reader sends back (ping answers, its own pings).
void drain(int socket)
{
	unsigned char sink[4096];
	while (recv(socket, sink, sizeof sink, MSG_DONTWAIT) > 0)
	{}
}

unsigned int deliverAll(OsiIPCommsBase& comms)
{
	unsigned int sum = 0;
	int id = 0, length = 0, remaining = 0;
	void* data = nullptr;
	for (int i = 0; i < 4096 && comms.receive(id, length, data, remaining); ++i)
	{
		if (id < 0 || length < 1 || remaining < 0)
			std::abort();
		const unsigned char* bytes = static_cast<const unsigned char*>(data);
		sum += bytes[0] + bytes[length - 1];
	}
	return sum;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
	int ends[2];
	if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0)
		return 0;
	OsiIPCommsBase comms(true);
	comms.attachSocket(ends[0], false);
	const int peer = ends[1];
	osdSetBlocking(peer, false);

	size_t offset = 0;
	bool shut = false;
	volatile unsigned int sum = 0;
	for (size_t round = 0; round < size + 64 && !comms.isPeerClosed(); ++round)
	{
		if (offset < size)
		{
			const size_t piece = std::min(pieceSizes[round % 6], size - offset);
			const ssize_t sent = send(peer, data + offset, piece, MSG_NOSIGNAL);
			if (sent > 0)
				offset += static_cast<size_t>(sent);
		}
		else if (!shut)
		{
			shutdown(peer, SHUT_WR);
			shut = true;
		}
		drain(peer);
		sum = sum + deliverAll(comms);
	}
	close(peer);
	return 0;
}
