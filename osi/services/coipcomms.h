// One end of a service connection: messages batched into packets, delivered
// one by one from incoming packets, and a ping that tells a silent peer from a
// live one.
#pragma once

#include "osi/services/copacket.h"

#include <chrono>

class OsiIPCommsBase
{
public:
	// With keepAlive, every receive pings the peer once per keep-alive interval
	// and marks it closed when the previous ping went unanswered.
	explicit OsiIPCommsBase(bool keepAlive);
	virtual ~OsiIPCommsBase();
	OsiIPCommsBase(const OsiIPCommsBase&) = delete;
	OsiIPCommsBase& operator=(const OsiIPCommsBase&) = delete;

	// Adds a message to the packet under way, which goes out when the
	// outermost send bracket closes (at once outside any bracket). Nothing
	// happens unless connected, with data and a length of at least 1; a
	// message too long for one packet is refused with a message.
	void send(int id, int length, const void* data);
	void beginSend();
	void endSend();

	// Hands out the next application message: its identifier, length, data
	// (valid until the next call) and how many messages of its packet follow.
	// Reads at most one packet per call, without waiting on a non-blocking
	// socket; answers pings on the way. False when no application message is
	// ready. A closed peer is only a flag: what it still sends is delivered.
	// After a refused (malformed) packet nothing more is read.
	bool receive(int& id, int& length, void*& data, int& remaining);

	// Takes over a connected socket (closing the one held before).
	bool attachSocket(int socket, bool blocking);
	bool setBlocking(bool blocking);
	// Waits up to the time-out until a message is ready or bytes arrive.
	bool waitForInput(int milliseconds) const;

	bool isConnected() const { return connected; }
	bool isPeerClosed() const { return peerClosed; }

	void setKeepAliveInterval(std::chrono::milliseconds interval) { keepAliveInterval = interval; }
	// The longest payload accepted from the peer (and sent in one packet);
	// longer packets are refused like malformed ones.
	void setMaximumPacketLength(long bytes);
	long maximumPacketLength() const { return maximumPayload; }
	long receiveBufferCapacity() const { return payloadCapacity; }

	// Makes buffer at least needed bytes long (reallocated to needed plus a
	// margin, keeping or dropping its contents); false if memory runs out.
	static bool growBuffer(char*& buffer, long& capacity, long needed, bool keepContents);
	static void freeBuffer(char*& buffer, long& capacity);

	static constexpr std::chrono::milliseconds defaultKeepAliveInterval{120000};
	static constexpr long defaultMaximumPacketLength = 64L << 20;
	static constexpr long initialBufferLength = 6144;
	static constexpr long bufferMargin = 4096;

protected:
	// Tells the peer that this end closes, then closes the socket.
	void closeConnection();
	void closeSocket();

private:
	void readPacket();
	long readSome(char* into, long length);
	bool makeRoomForPayload(long arrived);
	bool headerAcceptable() const;
	bool payloadAcceptable() const;
	bool deliverNext(int& id, int& length, void*& data, int& remaining);
	void checkKeepAlive();
	void appendMessage(int id, int length, const void* data);
	void transmit();
	void sendSignal(int id);
	void markPeerClosed();
	void noticeHangUp();
	void refusePacket();

	OsiPacketHeader incoming{};
	long readPosition = 0;
	char* payload = nullptr;
	long payloadCapacity = 0;
	long messagesLeft = 0;
	long walkOffset = 0;

	int sendDepth = 0;
	char* outgoing = nullptr;
	long outgoingFill = 0;
	long outgoingCapacity = 0;
	long openPacket = -1;

	int socketHandle = -1;
	bool connected = false;
	bool peerClosed = false;
	bool framingLost = false;
	const bool keepAlive;
	bool alive = true;
	std::chrono::steady_clock::time_point nextCheck{};
	std::chrono::milliseconds keepAliveInterval = defaultKeepAliveInterval;
	long maximumPayload = defaultMaximumPacketLength;
};
