// The transport's packets on a real loopback connection whose other end the
// test reads and writes byte by byte: batching, delivery, pings, keep-alive,
// and packets that are malformed or claim more than they bring.
#include "osi/services/coipcomms.h"
#include "services/receive_one.h"
#include "services/wire.h"

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <ostream>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using wire::Message;
using wire::Received;
using wire::receiveOne;

class Transport : public testing::Test
{
protected:
	void SetUp() override
	{
		ASSERT_TRUE(pair.ok());
		ASSERT_TRUE(comms.attachSocket(pair.takeNear(), false));
	}

	void write(const wire::Bytes& bytes) { ASSERT_TRUE(wire::writeAll(pair.far, bytes)); }

	wire::LoopbackPair pair;
	OsiIPCommsBase comms{false};
};

TEST_F(Transport, TwoMessagesInABracketTravelInOnePacket)
{
	comms.beginSend();
	comms.send(7, 3, "abc");
	comms.send(8, 5, "hello");
	comms.endSend();
	const wire::ReadPacket packet = wire::readPacket(pair.far);
	EXPECT_EQ(packet.marker, 1);
	EXPECT_EQ(packet.payloadLength, 32 + 3 + 5);
	EXPECT_EQ(packet.count, 2);
	EXPECT_EQ(packet.reserved, 0);
	ASSERT_EQ(packet.messages.size(), 2u);
	EXPECT_EQ(packet.messages[0].identifier, 7);
	EXPECT_EQ(packet.messages[0].data, "abc");
	EXPECT_EQ(packet.messages[1].identifier, 8);
	EXPECT_EQ(packet.messages[1].data, "hello");
	EXPECT_FALSE(wire::readable(pair.far, 0));
}

TEST_F(Transport, NestedBracketsSendWhenTheOutermostCloses)
{
	comms.beginSend();
	comms.beginSend();
	comms.send(1, 1, "a");
	comms.endSend();
	EXPECT_FALSE(wire::readable(pair.far, 50)) << "sent before the outer bracket closed";
	comms.send(2, 1, "b");
	comms.endSend();
	const wire::ReadPacket packet = wire::readPacket(pair.far);
	EXPECT_EQ(packet.count, 2);
	EXPECT_EQ(packet.payloadLength, 34);
}

TEST_F(Transport, MessagesOutsideBracketsTravelAloneAndIdentifiersSignExtended)
{
	comms.send(-7, 2, "xy");
	comms.send(INT_MAX, 1, "z");
	const wire::ReadPacket first = wire::readPacket(pair.far);
	const wire::ReadPacket second = wire::readPacket(pair.far);
	ASSERT_EQ(first.count, 1);
	ASSERT_EQ(first.messages.size(), 1u);
	EXPECT_EQ(first.messages[0].identifier, -7);
	ASSERT_EQ(second.messages.size(), 1u);
	EXPECT_EQ(second.messages[0].identifier, INT_MAX);
}

TEST_F(Transport, EmptyMessagesAndUnmatchedBracketEndsSendNothing)
{
	comms.send(1, 0, "x");
	comms.send(1, -3, "x");
	comms.send(1, 4, nullptr);
	comms.endSend();
	comms.send(9, 1, "z");
	const wire::ReadPacket packet = wire::readPacket(pair.far);
	ASSERT_EQ(packet.messages.size(), 1u);
	EXPECT_EQ(packet.messages[0].identifier, 9);
	EXPECT_FALSE(wire::readable(pair.far, 0));
}

TEST_F(Transport, MessagesComeOutOneByOneAndPingsAreAnsweredOnTheWay)
{
	write(wire::packet({{3, "one"},
	                    {OsiMessagePing, wire::signalData()},
	                    {4, "two"},
	                    {-7, "unknown"},
	                    {(std::int64_t{1} << 32) + 5, "three"}}));
	Received got;
	ASSERT_TRUE(receiveOne(comms, got));
	EXPECT_EQ(got.id, 3);
	EXPECT_EQ(got.data, "one");
	EXPECT_EQ(got.remaining, 4);
	ASSERT_TRUE(receiveOne(comms, got));
	EXPECT_EQ(got.id, 4);
	EXPECT_EQ(got.remaining, 2);
	ASSERT_TRUE(receiveOne(comms, got));
	EXPECT_EQ(got.id, 5) << "only the low 32 bits of an identifier count";
	EXPECT_EQ(got.data, "three");
	EXPECT_EQ(got.remaining, 0);

	const wire::ReadPacket answer = wire::readPacket(pair.far);
	ASSERT_EQ(answer.messages.size(), 1u);
	EXPECT_EQ(answer.messages[0].identifier, OsiMessagePingAnswer);
	int id = 0, length = 0, remaining = 0;
	void* data = nullptr;
	EXPECT_FALSE(comms.receive(id, length, data, remaining));
}

TEST_F(Transport, APingIsAnsweredWithoutAnApplicationMessageWaiting)
{
	write(wire::packet({{OsiMessagePing, wire::signalData()}}));
	int id = 0, length = 0, remaining = 0;
	void* data = nullptr;
	const auto deadline = Clock::now() + std::chrono::seconds(3);
	while (!wire::readable(pair.far, 0) && Clock::now() < deadline)
	{
		EXPECT_FALSE(comms.receive(id, length, data, remaining));
		comms.waitForInput(20);
	}
	const wire::ReadPacket answer = wire::readPacket(pair.far);
	EXPECT_EQ(answer.marker, 1);
	EXPECT_EQ(answer.payloadLength, 20);
	EXPECT_EQ(answer.count, 1);
	ASSERT_EQ(answer.messages.size(), 1u);
	EXPECT_EQ(answer.messages[0].identifier, OsiMessagePingAnswer);
	EXPECT_EQ(answer.messages[0].data, wire::signalData());
	EXPECT_FALSE(comms.isPeerClosed());
}

TEST_F(Transport, APacketArrivingInPiecesIsDeliveredWhenComplete)
{
	const std::string big(10000, 'q');
	const wire::Bytes bytes = wire::packet({{1, "first"}, {2, big}});
	int id = 0, length = 0, remaining = 0;
	void* data = nullptr;
	for (size_t at = 0; at + 7 < bytes.size(); at += 7)
	{
		write(wire::Bytes(bytes.begin() + static_cast<long>(at),
		                  bytes.begin() + static_cast<long>(at + 7)));
		comms.waitForInput(100);
		ASSERT_FALSE(comms.receive(id, length, data, remaining)) << "delivered at byte " << at;
	}
	write(wire::Bytes(bytes.end() - static_cast<long>((bytes.size() - 1) % 7 + 1), bytes.end()));
	Received got;
	ASSERT_TRUE(receiveOne(comms, got));
	EXPECT_EQ(got.data, "first");
	ASSERT_TRUE(receiveOne(comms, got));
	EXPECT_EQ(got.data, big);
}

TEST_F(Transport, TheEndOfTheStreamMarksThePeerClosed)
{
	close(pair.far);
	pair.far = -1;
	Received got;
	EXPECT_FALSE(receiveOne(comms, got));
	EXPECT_TRUE(comms.isPeerClosed());
}

TEST_F(Transport, AClaimedPayloadAllocatesOnlyWithWhatArrives)
{
	// Under the limit, so the header is accepted and the bytes are awaited.
	wire::Bytes header = wire::packet({{1, "x"}}, 60L << 20, 1);
	header.resize(sizeof(OsiPacketHeader));
	write(header);
	write(wire::Bytes(100 << 10, 0x55));
	int id = 0, length = 0, remaining = 0;
	void* data = nullptr;
	for (int i = 0; i < 200 && comms.waitForInput(50); ++i)
		EXPECT_FALSE(comms.receive(id, length, data, remaining));
	EXPECT_LT(comms.receiveBufferCapacity(), 1L << 20);
	close(pair.far);
	pair.far = -1;
	Received got;
	EXPECT_FALSE(receiveOne(comms, got));
	EXPECT_TRUE(comms.isPeerClosed());
}

TEST_F(Transport, ALowerLimitSplitsBracketsAndRefusesLongerMessages)
{
	comms.setMaximumPacketLength(1000);
	EXPECT_EQ(comms.maximumPacketLength(), 1000);
	const std::string part(400, 'p');
	testing::internal::CaptureStdout();
	comms.send(1, 2000, std::string(2000, 'x').data());
	const std::string said = testing::internal::GetCapturedStdout();
	EXPECT_NE(said.find("2000 bytes"), std::string::npos) << said;
	EXPECT_FALSE(wire::readable(pair.far, 20));

	comms.beginSend();
	for (int i = 0; i < 3; ++i)
		comms.send(i, static_cast<int>(part.size()), part.data());
	comms.endSend();
	const wire::ReadPacket first = wire::readPacket(pair.far);
	const wire::ReadPacket second = wire::readPacket(pair.far);
	EXPECT_EQ(first.count, 2);
	EXPECT_EQ(second.count, 1);
	EXPECT_LE(first.payloadLength, 1000);

	write(wire::packet({{1, std::string(1200, 'y')}}));
	Received got;
	EXPECT_FALSE(receiveOne(comms, got));
	EXPECT_TRUE(comms.isPeerClosed());
}

// --- malformed packets -------------------------------------------------------

struct Malformed
{
	const char* name;
	wire::Bytes bytes;
};

std::vector<Malformed> malformedPackets()
{
	const std::string x30(30, 'x');
	const std::int64_t limit = OsiIPCommsBase::defaultMaximumPacketLength;
	return {
	    {"marker0", wire::packet({{1, "a"}}, wire::automatic, wire::automatic, 0)},
	    {"marker2", wire::packet({{1, "a"}}, wire::automatic, wire::automatic, 2)},
	    {"reservedSet", wire::packet({{1, "a"}}, wire::automatic, wire::automatic, 1, 9)},
	    {"negativePayload", wire::packet({{1, "abc"}}, -19)},
	    {"hugePayload", wire::packet({{1, "abc"}}, INT64_MAX)},
	    {"payloadBeyondLimit", wire::packet({{1, "abc"}}, limit + 1)},
	    {"payloadShorterThanAMessage", wire::packet({{1, "a"}}, 16)},
	    {"noMessages", wire::packet({{1, "a"}}, wire::automatic, 0)},
	    {"negativeCount", wire::packet({{1, "a"}}, wire::automatic, -1)},
	    {"moreMessagesThanBytesAllow", wire::packet({{1, "a"}}, wire::automatic, 2)},
	    {"fewerMessagesThanCounted", wire::packet({{1, x30}}, wire::automatic, 2)},
	    {"moreMessagesThanCounted", wire::packet({{1, "a"}, {2, "b"}}, wire::automatic, 1)},
	    {"emptyMessage", wire::packet({{1, "", 0}, {2, "abc"}})},
	    {"negativeDataLength", wire::packet({{1, "abc", -3}})},
	    {"dataPastThePayload", wire::packet({{1, "abc", 50}})},
	    {"hugeDataLength", wire::packet({{1, "abc", INT64_MAX}})},
	    {"secondMessagePastThePayload", wire::packet({{1, "abc"}, {2, "defg", 5}})},
	};
}

void PrintTo(const Malformed& malformed, std::ostream* out)
{
	*out << malformed.name;
}

class MalformedPacket : public testing::TestWithParam<Malformed>
{};

// Whatever follows a malformed packet cannot be framed any more: nothing of
// it, or of the malformed packet, may be delivered.
TEST_P(MalformedPacket, ClosesThePeerAndDeliversNothing)
{
	wire::LoopbackPair pair;
	ASSERT_TRUE(pair.ok());
	OsiIPCommsBase comms(false);
	ASSERT_TRUE(comms.attachSocket(pair.takeNear(), false));
	wire::Bytes bytes = wire::packet({{5, "before"}});
	const wire::Bytes& bad = GetParam().bytes;
	bytes.insert(bytes.end(), bad.begin(), bad.end());
	const wire::Bytes after = wire::packet({{6, "after"}});
	bytes.insert(bytes.end(), after.begin(), after.end());
	ASSERT_TRUE(wire::writeAll(pair.far, bytes));

	Received got;
	ASSERT_TRUE(receiveOne(comms, got));
	EXPECT_EQ(got.data, "before");
	void* data = nullptr;
	for (int call = 0; call < 50; ++call, comms.waitForInput(10))
	{
		ASSERT_FALSE(comms.receive(got.id, got.length, data, got.remaining)) << got.id;
	}
	EXPECT_TRUE(comms.isPeerClosed());
	EXPECT_LT(comms.receiveBufferCapacity(), 1L << 20);
}

INSTANTIATE_TEST_SUITE_P(Transport, MalformedPacket, testing::ValuesIn(malformedPackets()),
                         [](const testing::TestParamInfo<Malformed>& info) {
	                         return std::string(info.param.name);
                         });

// --- a peer marked closed ----------------------------------------------------

struct Closing
{
	const char* name;
	bool missesAPing; // otherwise it says goodbye
};

void PrintTo(const Closing& closing, std::ostream* out)
{
	*out << closing.name;
}

class ClosedPeer : public testing::TestWithParam<Closing>
{};

// Being marked closed is only a flag: a slow peer's later messages all arrive,
// in order, and a late ping answer has keep-alive ping it again.
TEST_P(ClosedPeer, StillDeliversEveryLaterMessageInOrder)
{
	const bool missesAPing = GetParam().missesAPing;
	wire::LoopbackPair pair;
	ASSERT_TRUE(pair.ok());
	OsiIPCommsBase comms(missesAPing);
	comms.setKeepAliveInterval(std::chrono::milliseconds(30));
	ASSERT_TRUE(comms.attachSocket(pair.takeNear(), false));
	if (!missesAPing)
	{
		ASSERT_TRUE(
		    wire::writeAll(pair.far, wire::packet({{OsiMessagePeerClosed, wire::signalData()}})));
	}
	int id = 0, length = 0, remaining = 0;
	void* data = nullptr;
	const auto deadline = Clock::now() + std::chrono::seconds(3);
	while (!comms.isPeerClosed() && Clock::now() < deadline)
	{
		EXPECT_FALSE(comms.receive(id, length, data, remaining));
		comms.waitForInput(10);
	}
	ASSERT_TRUE(comms.isPeerClosed());

	wire::Bytes late = wire::packet({{1, "a"}});
	for (const wire::Bytes& next :
	     {wire::packet({{OsiMessagePingAnswer, wire::signalData()}, {2, "b"}, {3, "c"}}),
	      wire::packet({{4, "d"}})})
		late.insert(late.end(), next.begin(), next.end());
	ASSERT_TRUE(wire::writeAll(pair.far, late));
	std::string arrived;
	Received got;
	while (arrived.size() < 4 && receiveOne(comms, got, std::chrono::seconds(3), true))
		arrived += got.data;
	EXPECT_EQ(arrived, "abcd");

	if (!missesAPing)
		return;
	EXPECT_EQ(wire::readPacket(pair.far).messages.size(), 1u) << "the missed ping";
	while (!wire::readable(pair.far, 10) && Clock::now() < deadline + std::chrono::seconds(3))
		comms.receive(id, length, data, remaining);
	const wire::ReadPacket ping = wire::readPacket(pair.far);
	ASSERT_EQ(ping.messages.size(), 1u);
	EXPECT_EQ(ping.messages[0].identifier, OsiMessagePing);
}

INSTANTIATE_TEST_SUITE_P(Transport, ClosedPeer,
                         testing::Values(Closing{"missedPing", true}, Closing{"goodbye", false}),
                         [](const testing::TestParamInfo<Closing>& info) {
	                         return std::string(info.param.name);
                         });

// --- keep-alive ----------------------------------------------------------------

TEST(KeepAlive, ASilentPeerIsMarkedClosedAtTheNextCheck)
{
	wire::LoopbackPair pair;
	ASSERT_TRUE(pair.ok());
	OsiIPCommsBase comms(true);
	comms.setKeepAliveInterval(std::chrono::milliseconds(50));
	ASSERT_TRUE(comms.attachSocket(pair.takeNear(), false));

	int id = 0, length = 0, remaining = 0;
	void* data = nullptr;
	EXPECT_FALSE(comms.receive(id, length, data, remaining));
	EXPECT_FALSE(comms.isPeerClosed()) << "closed before any ping went unanswered";
	const wire::ReadPacket ping = wire::readPacket(pair.far);
	ASSERT_EQ(ping.messages.size(), 1u);
	EXPECT_EQ(ping.messages[0].identifier, OsiMessagePing);
	EXPECT_EQ(ping.messages[0].data, wire::signalData());

	const auto deadline = Clock::now() + std::chrono::seconds(3);
	while (!comms.isPeerClosed() && Clock::now() < deadline)
	{
		EXPECT_FALSE(comms.receive(id, length, data, remaining));
		comms.waitForInput(10);
	}
	EXPECT_TRUE(comms.isPeerClosed());
	EXPECT_TRUE(comms.isConnected()) << "the socket stays until it is closed";
}

TEST(KeepAlive, AnsweredPingsKeepThePeerAlive)
{
	wire::LoopbackPair pair;
	ASSERT_TRUE(pair.ok());
	OsiIPCommsBase comms(true);
	comms.setKeepAliveInterval(std::chrono::milliseconds(100));
	ASSERT_TRUE(comms.attachSocket(pair.takeNear(), false));

	int pings = 0;
	int id = 0, length = 0, remaining = 0;
	void* data = nullptr;
	const auto end = Clock::now() + std::chrono::milliseconds(650);
	while (Clock::now() < end && !comms.isPeerClosed())
	{
		comms.receive(id, length, data, remaining);
		if (wire::readable(pair.far, 5))
		{
			const wire::ReadPacket ping = wire::readPacket(pair.far);
			ASSERT_EQ(ping.messages.size(), 1u);
			ASSERT_EQ(ping.messages[0].identifier, OsiMessagePing);
			++pings;
			ASSERT_TRUE(wire::writeAll(pair.far,
			                           wire::packet({{OsiMessagePingAnswer, wire::signalData()}})));
		}
	}
	EXPECT_FALSE(comms.isPeerClosed());
	EXPECT_GE(pings, 3);
}

} // namespace
