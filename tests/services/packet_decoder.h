// The packet layout read straight from the bytes, independently of the
// transport: what its reader must deliver for a byte stream, and the bytes
// that arrived on the raw end of a connection.
#pragma once

#include "osi/services/coipcomms.h"

#include <sys/socket.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace wire {

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
	long pings = 0;      // pings received, which the reader answers
	bool closed = false; // refused, or said goodbye
};

inline std::int64_t field(const std::uint8_t* at)
{
	std::int64_t value;
	std::memcpy(&value, at, sizeof value);
	return value;
}

// A 32-byte header (marker 1, payload length, message count, reserved 0),
// then messages of a 16-byte header (data length, identifier) and their data.
// A bad header or messages that do not fill their payload exactly refuse the
// stream; an incomplete packet ends it.
inline Outcome decode(const std::uint8_t* bytes, size_t size)
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
			outcome.pings += id == OsiMessagePing;
			outcome.closed = outcome.closed || id == OsiMessagePeerClosed;
			if (id >= 0)
				outcome.deliveries.push_back(
				    {id, messages[i].second, static_cast<int>(messages.size() - 1 - i)});
		}
		at = end;
	}
	return outcome;
}

inline Outcome decode(const std::vector<unsigned char>& bytes)
{
	return decode(bytes.data(), bytes.size());
}

// Whatever has arrived on socket, without waiting.
inline std::vector<unsigned char> drain(int socket)
{
	std::vector<unsigned char> bytes;
	unsigned char sink[4096];
	for (ssize_t got; (got = recv(socket, sink, sizeof sink, MSG_DONTWAIT)) > 0;)
		bytes.insert(bytes.end(), sink, sink + got);
	return bytes;
}

} // namespace wire
