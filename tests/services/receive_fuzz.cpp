// Arbitrary bytes from a peer, fed to the transport's reader in pieces of
// changing size, must give what the independent decoder reads: messages,
// pings answered, refusal or goodbye; the reader's buffer grows only with
// the bytes that arrived.
#include "osi/osd/osdsocket.h"
#include "osi/services/coipcomms.h"
#include "services/packet_decoder.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

const size_t pieceSizes[] = {1, 7, 32, 33, 4096, 70000};
constexpr long signalPacketBytes = 32 + 16 + 4;

void deliverAll(OsiIPCommsBase& comms, std::vector<wire::Delivery>& deliveries)
{
	int id = 0, length = 0, remaining = 0;
	void* data = nullptr;
	while (comms.receive(id, length, data, remaining))
		deliveries.push_back(
		    {id, std::string(static_cast<const char*>(data), static_cast<size_t>(length)),
		     remaining});
}

// The reader's buffer follows what arrived: at most doubling it, plus a
// fixed step and margin.
void checkBuffer(const OsiIPCommsBase& comms, size_t arrived)
{
	const long bound =
	    std::max(OsiIPCommsBase::initialBufferLength, 2 * static_cast<long>(arrived) + (68L << 10));
	if (comms.receiveBufferCapacity() > bound)
		std::abort();
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

	wire::Outcome read;
	long returned = 0;
	size_t offset = 0;
	for (size_t round = 0; round < size + 64 && offset < size; ++round)
	{
		const size_t piece = std::min(pieceSizes[round % 6], size - offset);
		const ssize_t sent = send(peer, data + offset, piece, MSG_NOSIGNAL);
		if (sent > 0)
			offset += static_cast<size_t>(sent);
		returned += static_cast<long>(wire::drain(peer).size());
		deliverAll(comms, read.deliveries);
		checkBuffer(comms, offset);
	}
	// Every packet is at least 49 bytes and each receive reads one.
	for (size_t round = 0; round < offset / 49 + 4; ++round)
	{
		deliverAll(comms, read.deliveries);
		returned += static_cast<long>(wire::drain(peer).size());
	}
	checkBuffer(comms, offset);
	read.closed = comms.isPeerClosed();
	read.pings = returned / signalPacketBytes - 1; // less the reader's own ping

	const wire::Outcome expected = wire::decode(data, offset);
	if (!(read.deliveries == expected.deliveries) || read.closed != expected.closed ||
	    read.pings != expected.pings)
		std::abort();

	// The end of the stream closes the peer and delivers nothing more.
	shutdown(peer, SHUT_WR);
	deliverAll(comms, read.deliveries);
	if (!comms.isPeerClosed() || read.deliveries.size() != expected.deliveries.size())
		std::abort();
	close(peer);
	return 0;
}
