// The framing of the service transport. A packet is a fixed header followed by
// its messages; a message is a header followed by its data. Every field is a
// 64-bit integer stored as laid out in memory on the little-endian hosts the
// framework runs on.
#pragma once

#include <cstdint>

struct OsiPacketHeader
{
	std::int64_t marker;        // always packetMarker
	std::int64_t payloadLength; // bytes after this header: all messages with their headers
	std::int64_t messageCount;
	std::int64_t reserved; // 0
};

struct OsiMessageHeader
{
	std::int64_t dataLength; // at least 1
	std::int64_t identifier; // a signed 32-bit value, sign-extended
};

static_assert(sizeof(OsiPacketHeader) == 32, "packet header is 32 bytes on the wire");
static_assert(sizeof(OsiMessageHeader) == 16, "message header is 16 bytes on the wire");
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "the transport writes its headers in the host's byte order, which must be little-endian"
#endif

constexpr std::int64_t OsiPacketMarker = 1;

// Identifiers below 0 belong to the transport; the application uses 0 and up.
enum OsiTransportMessage : int
{
	OsiMessagePeerClosed = -1,
	OsiMessagePing = -2,
	OsiMessagePingAnswer = -3
};
