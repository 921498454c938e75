// Test helpers for the service transport: a connected loopback TCP pair, and
// packets built and read byte by byte on the raw end of it.
#pragma once

#include "osi/services/copacket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace wire {

using Bytes = std::vector<unsigned char>;

// Stands for the true value of a length or count field.
constexpr std::int64_t automatic = INT64_MIN;

// Two ends of one loopback TCP connection, closed at the end of the scope
// unless taken.
struct LoopbackPair
{
	int near = -1;
	int far = -1;

	LoopbackPair()
	{
		const int listener = socket(AF_INET, SOCK_STREAM, 0);
		sockaddr_in address{};
		address.sin_family = AF_INET;
		address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
		socklen_t length = sizeof address;
		if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
		    listen(listener, 1) == 0 &&
		    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length) == 0)
		{
			near = socket(AF_INET, SOCK_STREAM, 0);
			if (connect(near, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0)
				far = accept(listener, nullptr, nullptr);
		}
		close(listener);
	}
	~LoopbackPair()
	{
		if (near >= 0)
			close(near);
		if (far >= 0)
			close(far);
	}
	bool ok() const { return near >= 0 && far >= 0; }
	// Hands the near end to its new owner.
	int takeNear()
	{
		const int handle = near;
		near = -1;
		return handle;
	}
};

struct Message
{
	std::int64_t identifier;
	std::string data;
	std::int64_t dataLength = automatic;
};

inline void append(Bytes& bytes, std::int64_t value)
{
	unsigned char raw[8];
	std::memcpy(raw, &value, sizeof raw);
	bytes.insert(bytes.end(), raw, raw + sizeof raw);
}

inline Bytes messageBytes(const Message& message)
{
	Bytes bytes;
	append(bytes, message.dataLength != automatic ? message.dataLength
	                                              : static_cast<std::int64_t>(message.data.size()));
	append(bytes, message.identifier);
	bytes.insert(bytes.end(), message.data.begin(), message.data.end());
	return bytes;
}

// A packet with the given header fields.
inline Bytes packet(const std::vector<Message>& messages, std::int64_t payloadLength = automatic,
                    std::int64_t count = automatic, std::int64_t marker = OsiPacketMarker,
                    std::int64_t reserved = 0)
{
	Bytes payload;
	for (const Message& message : messages)
	{
		const Bytes one = messageBytes(message);
		payload.insert(payload.end(), one.begin(), one.end());
	}
	Bytes bytes;
	append(bytes, marker);
	append(bytes,
	       payloadLength != automatic ? payloadLength : static_cast<std::int64_t>(payload.size()));
	append(bytes, count != automatic ? count : static_cast<std::int64_t>(messages.size()));
	append(bytes, reserved);
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
	while (done < bytes.size())
	{
		const ssize_t n = ::send(socket, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
		if (n <= 0)
			return false;
		done += static_cast<size_t>(n);
	}
	return true;
}

inline bool readable(int socket, int milliseconds)
{
	pollfd watched{socket, POLLIN, 0};
	return poll(&watched, 1, milliseconds) > 0;
}

// Reads exactly count bytes, waiting at most a few seconds in all.
inline Bytes readExactly(int socket, size_t count)
{
	Bytes bytes(count);
	size_t done = 0;
	while (done < count && readable(socket, 3000))
	{
		const ssize_t n = recv(socket, bytes.data() + done, count - done, 0);
		if (n <= 0)
			break;
		done += static_cast<size_t>(n);
	}
	bytes.resize(done);
	return bytes;
}

inline std::int64_t fieldAt(const Bytes& bytes, size_t offset)
{
	std::int64_t value = 0;
	if (offset + sizeof value <= bytes.size())
		std::memcpy(&value, bytes.data() + offset, sizeof value);
	return value;
}

// One whole packet from the raw end: its header and its payload.
struct ReadPacket
{
	std::int64_t marker = 0;
	std::int64_t payloadLength = 0;
	std::int64_t count = 0;
	std::int64_t reserved = 0;
	std::vector<Message> messages;
};

inline ReadPacket readPacket(int socket)
{
	ReadPacket read;
	const Bytes header = readExactly(socket, sizeof(OsiPacketHeader));
	if (header.size() != sizeof(OsiPacketHeader))
		return read;
	read.marker = fieldAt(header, 0);
	read.payloadLength = fieldAt(header, 8);
	read.count = fieldAt(header, 16);
	read.reserved = fieldAt(header, 24);
	if (read.payloadLength < 0 || read.payloadLength > (1 << 24))
		return read;
	const Bytes payload = readExactly(socket, static_cast<size_t>(read.payloadLength));
	for (size_t at = 0; at + 16 <= payload.size();)
	{
		Message message{fieldAt(payload, at + 8), {}, fieldAt(payload, at)};
		const size_t end = at + 16 + static_cast<size_t>(message.dataLength);
		if (message.dataLength < 0 || end > payload.size())
			break;
		message.data.assign(payload.begin() + static_cast<long>(at + 16),
		                    payload.begin() + static_cast<long>(end));
		read.messages.push_back(message);
		at = end;
	}
	return read;
}

} // namespace wire
