// Arbitrary bytes from a peer, fed through a socket pair to the transport's
// reader in pieces of changing size, and decoded independently here from the
// packet layout. Both must agree on every delivered message (identifier, data,
// messages left), on the pings answered and on whether the stream was refused
// or closed by a goodbye; the reader's buffer grows only with the bytes that
// arrived, and it never reads outside them.
#include "osi/osd/osdsocket.h"
#include "osi/services/coipcomms.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <tuple>
#include <vector>

namespace {

const size_t pieceSizes[] = {1, 7, 32, 33, 4096, 70000};
constexpr long signalPacketBytes = 32 + 16 + 4;

struct Delivery
{
	int id;
	std::string data;
	int remaining;
	bool operator==(const Delivery& other) const
	{
		return std::tie(id, data, remaining) == std::tie(other.id, other.data, other.remaining);
	}
};

struct Outcome
{
	std::vector<Delivery> deliveries;
	long pingsAnswered = 0;
	bool closed = false; // refused, or said goodbye
};

std::int64_t field(const std::uint8_t* at)
{
	std::int64_t value;
	std::memcpy(&value, at, sizeof value);
	return value;
}

// The packet layout read straight from the bytes: a 32-byte header (marker 1,
// payload length, message count, reserved 0), then messages of a 16-byte
// header (data length, identifier) and their data. A header that cannot be
// right, a payload over the limit or messages that do not fill their payload
// exactly refuse the stream; an incomplete packet ends it.
Outcome decode(const std::uint8_t* bytes, size_t size)
{
	const std::int64_t limit = OsiIPCommsBase::defaultMaximumPacketLength;
	Outcome outcome;
	size_t at = 0;
	while (size - at >= 32)
	{
		const std::int64_t payload = field(bytes + at + 8), count = field(bytes + at + 16);
		if (field(bytes + at) != 1 || field(bytes + at + 24) != 0 || payload < 17 ||
		    payload > limit || count < 1 || count > payload / 17)
			return outcome.closed = true, outcome;
		if (static_cast<std::int64_t>(size - at - 32) < payload)
			return outcome;
		const size_t end = at + 32 + static_cast<size_t>(payload);
		std::vector<std::pair<int, std::string>> messages;
		size_t next = at + 32;
		for (std::int64_t i = 0; i < count; ++i)
		{
			const std::int64_t length = end - next >= 16 ? field(bytes + next) : 0;
			if (length < 1 || length > static_cast<std::int64_t>(end - next - 16))
				return outcome.closed = true, outcome;
			const auto id =
			    static_cast<std::int32_t>(static_cast<std::uint32_t>(field(bytes + next + 8)));
			messages.emplace_back(id, std::string(reinterpret_cast<const char*>(bytes + next + 16),
			                                      static_cast<size_t>(length)));
			next += 16 + static_cast<size_t>(length);
		}
		if (next != end)
			return outcome.closed = true, outcome;
		for (size_t i = 0; i < messages.size(); ++i)
		{
			const int id = messages[i].first;
			outcome.pingsAnswered += id == -2;
			outcome.closed = outcome.closed || id == -1;
			if (id >= 0)
				outcome.deliveries.push_back(
				    {id, messages[i].second, static_cast<int>(messages.size() - 1 - i)});
		}
		at = end;
	}
	return outcome;
}

// Takes away what the reader sends back (ping answers, its own ping).
long drain(int socket)
{
	long bytes = 0;
	unsigned char sink[4096];
	for (ssize_t got; (got = recv(socket, sink, sizeof sink, MSG_DONTWAIT)) > 0;)
		bytes += got;
	return bytes;
}

void deliverAll(OsiIPCommsBase& comms, std::vector<Delivery>& deliveries)
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

	Outcome read;
	long returned = 0;
	size_t offset = 0;
	for (size_t round = 0; round < size + 64 && offset < size; ++round)
	{
		const size_t piece = std::min(pieceSizes[round % 6], size - offset);
		const ssize_t sent = send(peer, data + offset, piece, MSG_NOSIGNAL);
		if (sent > 0)
			offset += static_cast<size_t>(sent);
		returned += drain(peer);
		deliverAll(comms, read.deliveries);
		checkBuffer(comms, offset);
	}
	// Every packet is at least 49 bytes and each receive reads one.
	for (size_t round = 0; round < offset / 49 + 4; ++round)
	{
		deliverAll(comms, read.deliveries);
		returned += drain(peer);
	}
	checkBuffer(comms, offset);
	read.closed = comms.isPeerClosed();
	read.pingsAnswered = returned / signalPacketBytes - 1; // less the reader's own ping

	const Outcome expected = decode(data, offset);
	if (!(read.deliveries == expected.deliveries) || read.closed != expected.closed ||
	    read.pingsAnswered != expected.pingsAnswered)
		std::abort();

	// The end of the stream closes the peer and delivers nothing more.
	shutdown(peer, SHUT_WR);
	deliverAll(comms, read.deliveries);
	if (!comms.isPeerClosed() || read.deliveries.size() != expected.deliveries.size())
		std::abort();
	close(peer);
	return 0;
}
