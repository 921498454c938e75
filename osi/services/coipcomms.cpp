#include "osi/services/coipcomms.h"

#include "osi/osd/osdsocket.h"
#include "osi/osd/osdthread.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr long packetHeaderSize = sizeof(OsiPacketHeader);
constexpr long messageHeaderSize = sizeof(OsiMessageHeader);
// The shortest message: a header and one byte of data.
constexpr long smallestMessage = messageHeaderSize + 1;
// A payload buffer grows with what has arrived, never with what a header
// claims: at most doubling, and at least by this much.
constexpr long payloadGrowth = 64L << 10;
constexpr int sendAttempts = 5;
constexpr int sendPauseMilliseconds = 50;

OsiPacketHeader headerAt(const char* at)
{
	OsiPacketHeader header;
	std::memcpy(&header, at, sizeof header);
	return header;
}

OsiMessageHeader messageAt(const char* at)
{
	OsiMessageHeader message;
	std::memcpy(&message, at, sizeof message);
	return message;
}

} // namespace

OsiIPCommsBase::OsiIPCommsBase(bool keepAlive) : keepAlive(keepAlive)
{
	payload = static_cast<char*>(std::malloc(initialBufferLength));
	payloadCapacity = payload ? initialBufferLength : 0;
	outgoing = static_cast<char*>(std::malloc(initialBufferLength));
	outgoingCapacity = outgoing ? initialBufferLength : 0;
}

OsiIPCommsBase::~OsiIPCommsBase()
{
	closeSocket();
	freeBuffer(payload, payloadCapacity);
	freeBuffer(outgoing, outgoingCapacity);
}

bool OsiIPCommsBase::growBuffer(char*& buffer, long& capacity, long needed, bool keepContents)
{
	if (needed <= capacity)
		return true;
	const size_t size = static_cast<size_t>(needed + bufferMargin);
	char* grown = static_cast<char*>(keepContents ? std::realloc(buffer, size) : std::malloc(size));
	if (!grown)
		return false;
	if (!keepContents)
		std::free(buffer);
	buffer = grown;
	capacity = needed + bufferMargin;
	return true;
}

void OsiIPCommsBase::freeBuffer(char*& buffer, long& capacity)
{
	std::free(buffer);
	buffer = nullptr;
	capacity = 0;
}

void OsiIPCommsBase::setMaximumPacketLength(long bytes)
{
	maximumPayload =
	    std::clamp(bytes, smallestMessage, static_cast<long>(INT_MAX) - packetHeaderSize);
}

bool OsiIPCommsBase::attachSocket(int socket, bool blocking)
{
	closeSocket();
	if (socket < 0)
		return false;
	socketHandle = socket;
	connected = true;
	peerClosed = false;
	framingLost = false;
	alive = true;
	nextCheck = {};
	sendDepth = 0;
	outgoingFill = 0;
	openPacket = -1;
	return setBlocking(blocking);
}

bool OsiIPCommsBase::setBlocking(bool blocking)
{
	return connected && osdSetBlocking(socketHandle, blocking);
}

void OsiIPCommsBase::closeSocket()
{
	osdCloseSocket(socketHandle);
	socketHandle = -1;
	connected = false;
	readPosition = 0;
	messagesLeft = 0;
}

void OsiIPCommsBase::closeConnection()
{
	if (connected)
	{
		// Whatever a bracket left open goes out now, followed by the goodbye.
		sendDepth = 0;
		openPacket = -1;
		sendSignal(OsiMessagePeerClosed);
	}
	closeSocket();
}

void OsiIPCommsBase::markPeerClosed()
{
	peerClosed = true;
}

void OsiIPCommsBase::noticeHangUp()
{
	if (connected && !peerClosed && osdPeerHasHungUp(socketHandle))
		markPeerClosed();
}

// Once a packet is refused the stream can no longer be framed: nothing more is
// read from it.
void OsiIPCommsBase::refusePacket()
{
	framingLost = true;
	markPeerClosed();
}

bool OsiIPCommsBase::waitForInput(int milliseconds) const
{
	if (messagesLeft > 0)
		return true;
	return connected && osdWaitForInput(socketHandle, milliseconds);
}

// --- sending -----------------------------------------------------------------

void OsiIPCommsBase::send(int id, int length, const void* data)
{
	if (!connected || !data || length < 1)
		return;
	if (messageHeaderSize + length > maximumPayload)
	{
		std::printf("Message %d of %d bytes does not fit a packet of at most %ld bytes.\n", id,
		            length, maximumPayload);
		return;
	}
	beginSend();
	appendMessage(id, length, data);
	endSend();
}

void OsiIPCommsBase::beginSend()
{
	++sendDepth;
}

void OsiIPCommsBase::endSend()
{
	if (sendDepth == 0 || --sendDepth > 0)
		return;
	openPacket = -1;
	transmit();
}

void OsiIPCommsBase::appendMessage(int id, int length, const void* data)
{
	const long size = messageHeaderSize + length;
	// A bracket that outgrows one packet continues in the next.
	if (openPacket >= 0 && headerAt(outgoing + openPacket).payloadLength + size > maximumPayload)
		openPacket = -1;
	const long needed = outgoingFill + size + (openPacket < 0 ? packetHeaderSize : 0);
	if (!growBuffer(outgoing, outgoingCapacity, needed, true))
	{
		std::printf("No memory to send message %d of %d bytes.\n", id, length);
		return;
	}
	if (openPacket < 0)
	{
		const OsiPacketHeader fresh{OsiPacketMarker, 0, 0, 0};
		std::memcpy(outgoing + outgoingFill, &fresh, sizeof fresh);
		openPacket = outgoingFill;
		outgoingFill += packetHeaderSize;
	}
	const OsiMessageHeader message{length, id};
	std::memcpy(outgoing + outgoingFill, &message, sizeof message);
	std::memcpy(outgoing + outgoingFill + messageHeaderSize, data, static_cast<size_t>(length));
	outgoingFill += size;
	OsiPacketHeader header = headerAt(outgoing + openPacket);
	header.payloadLength += size;
	header.messageCount += 1;
	std::memcpy(outgoing + openPacket, &header, sizeof header);
}

// Sends the buffer; on a socket that is full the attempt pauses before the
// next one. What could not be sent stays at the front for the next flush.
void OsiIPCommsBase::transmit()
{
	if (!connected || outgoingFill == 0)
		return;
	long sent = 0;
	bool busy = true;
	for (int attempt = 0; attempt < sendAttempts && busy; ++attempt)
	{
		if (attempt > 0)
			OsdThread::sleep(sendPauseMilliseconds);
		busy = false;
		while (sent < outgoingFill)
		{
			OsdSocketStall stall = OsdSocketStall::ended;
			const long written =
			    osdSendOnSocket(socketHandle, outgoing + sent, outgoingFill - sent, stall);
			if (written > 0)
			{
				sent += written;
				continue;
			}
			busy = stall == OsdSocketStall::busy;
			if (!busy)
				markPeerClosed();
			break;
		}
	}
	std::memmove(outgoing, outgoing + sent, static_cast<size_t>(outgoingFill - sent));
	outgoingFill -= sent;
	// Bytes written to a peer that has gone are accepted all the same, and
	// only a later write fails: look at the connection instead.
	noticeHangUp();
}

void OsiIPCommsBase::sendSignal(int id)
{
	const std::int32_t one = 1;
	send(id, sizeof one, &one);
}

// --- receiving ---------------------------------------------------------------

bool OsiIPCommsBase::receive(int& id, int& length, void*& data, int& remaining)
{
	if (!connected)
		return false;
	// A closed peer only sets a flag: what it sent before going still arrives.
	if (messagesLeft == 0 && !framingLost)
		readPacket();
	const bool delivered = deliverNext(id, length, data, remaining);
	checkKeepAlive();
	return delivered;
}

// Bytes available now, up to length: 0 when none are (the peer is marked
// closed when the stream ended or broke).
long OsiIPCommsBase::readSome(char* into, long length)
{
	OsdSocketStall stall = OsdSocketStall::ended;
	const long got = osdReceiveOnSocket(socketHandle, into, length, stall);
	if (got == 0 && stall == OsdSocketStall::ended)
		markPeerClosed();
	return got;
}

// Continues the packet under way; when it is complete and well formed its
// messages become ready. A malformed packet is refused and ends reading.
void OsiIPCommsBase::readPacket()
{
	char* header = reinterpret_cast<char*>(&incoming);
	while (readPosition < packetHeaderSize)
	{
		const long got = readSome(header + readPosition, packetHeaderSize - readPosition);
		if (got == 0)
			return;
		readPosition += got;
	}
	if (!headerAcceptable())
		return refusePacket();
	const long total = packetHeaderSize + incoming.payloadLength;
	while (readPosition < total)
	{
		const long arrived = readPosition - packetHeaderSize;
		if (!makeRoomForPayload(arrived))
			return refusePacket();
		const long got =
		    readSome(payload + arrived, std::min(total - readPosition, payloadCapacity - arrived));
		if (got == 0)
			return;
		readPosition += got;
	}
	readPosition = 0;
	if (!payloadAcceptable())
		return refusePacket();
	messagesLeft = incoming.messageCount;
	walkOffset = 0;
}

bool OsiIPCommsBase::makeRoomForPayload(long arrived)
{
	if (payloadCapacity > arrived)
		return true;
	const long target = std::min(static_cast<long>(incoming.payloadLength),
	                             std::max(2 * arrived, arrived + payloadGrowth));
	return growBuffer(payload, payloadCapacity, target, true);
}

bool OsiIPCommsBase::headerAcceptable() const
{
	return incoming.marker == OsiPacketMarker && incoming.reserved == 0 &&
	       incoming.payloadLength >= smallestMessage && incoming.payloadLength <= maximumPayload &&
	       incoming.messageCount >= 1 &&
	       incoming.messageCount <= incoming.payloadLength / smallestMessage;
}

// Every message lies inside the payload, and together they fill it exactly.
bool OsiIPCommsBase::payloadAcceptable() const
{
	const long end = static_cast<long>(incoming.payloadLength);
	long offset = 0;
	for (std::int64_t counted = 0; counted < incoming.messageCount; ++counted)
	{
		if (end - offset < messageHeaderSize)
			return false;
		const OsiMessageHeader message = messageAt(payload + offset);
		if (message.dataLength < 1 || message.dataLength > end - offset - messageHeaderSize)
			return false;
		offset += messageHeaderSize + static_cast<long>(message.dataLength);
	}
	return offset == end;
}

bool OsiIPCommsBase::deliverNext(int& id, int& length, void*& data, int& remaining)
{
	while (messagesLeft > 0)
	{
		const OsiMessageHeader message = messageAt(payload + walkOffset);
		char* messageData = payload + walkOffset + messageHeaderSize;
		walkOffset += messageHeaderSize + static_cast<long>(message.dataLength);
		--messagesLeft;
		// The identifier travels sign-extended; its low 32 bits count.
		const int identifier = static_cast<int>(static_cast<std::uint32_t>(message.identifier));
		if (identifier == OsiMessagePing)
			sendSignal(OsiMessagePingAnswer);
		else if (identifier == OsiMessagePingAnswer)
			alive = true;
		else if (identifier == OsiMessagePeerClosed)
			peerClosed = true;
		else if (identifier >= 0)
		{
			id = identifier;
			length = static_cast<int>(message.dataLength);
			data = messageData;
			remaining = static_cast<int>(messagesLeft);
			return true;
		}
	}
	return false;
}

void OsiIPCommsBase::checkKeepAlive()
{
	if (!keepAlive)
		return;
	const auto now = std::chrono::steady_clock::now();
	if (now < nextCheck)
		return;
	if (alive)
	{
		alive = false;
		sendSignal(OsiMessagePing);
	}
	else
		markPeerClosed();
	nextCheck = now + keepAliveInterval;
}
