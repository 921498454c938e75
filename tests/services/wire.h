// The raw end of a transport: packets built byte by byte, and the bytes the
// transport sent, taken as they are.
#pragma once

#include "osi/services/copacket.h"

#include <sys/socket.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace wire {

using Bytes = std::vector<unsigned char>;

inline void append(Bytes& bytes, std::int64_t value)
{
	unsigned char raw[8];
	std::memcpy(raw, &value, sizeof raw);
	bytes.insert(bytes.end(), raw, raw + sizeof raw);
}

// One well-formed packet of (identifier, data) messages.
inline Bytes packet(const std::vector<std::pair<int, std::string>>& messages)
{
	Bytes payload;
	for (const auto& [id, data] : messages)
	{
		append(payload, static_cast<std::int64_t>(data.size()));
		append(payload, id);
		payload.insert(payload.end(), data.begin(), data.end());
	}
	Bytes bytes;
	append(bytes, OsiPacketMarker);
	append(bytes, static_cast<std::int64_t>(payload.size()));
	append(bytes, static_cast<std::int64_t>(messages.size()));
	append(bytes, 0);
	bytes.insert(bytes.end(), payload.begin(), payload.end());
	return bytes;
}

inline std::string signalData()
{
	const std::int32_t one = 1;
	return std::string(reinterpret_cast<const char*>(&one), sizeof one);
}

inline bool writeAll(int socket, const Bytes& bytes)
{
	size_t done = 0;
	for (ssize_t n = 0; done < bytes.size(); done += static_cast<size_t>(n))
	{
		n = ::send(socket, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
		if (n <= 0)
			return false;
	}
	return true;
}

// Whatever has arrived on socket, without waiting.
inline Bytes drain(int socket)
{
	Bytes bytes;
	unsigned char sink[4096];
	for (ssize_t got; (got = recv(socket, sink, sizeof sink, MSG_DONTWAIT)) > 0;)
		bytes.insert(bytes.end(), sink, sink + got);
	return bytes;
}

} // namespace wire
