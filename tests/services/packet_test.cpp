// Sent messages as packets on a raw socket end, and the keep-alive ping; the
// receive fuzz target checks the reader against the same decoder.
#include "osi/services/coipcomms.h"
#include "services/packet_decoder.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace {

using wire::Delivery;

// A transport on one end of a socket pair; far is the raw other end.
struct Connection
{
	explicit Connection(bool keepAlive) : comms(keepAlive)
	{
		int ends[2];
		EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
		comms.attachSocket(ends[0], false);
		far = ends[1];
	}
	~Connection() { close(far); }

	bool receive(std::string& data)
	{
		int id = 0, length = 0, remaining = 0;
		void* bytes = nullptr;
		const bool got = comms.receive(id, length, bytes, remaining);
		data = got ? std::string(static_cast<const char*>(bytes), static_cast<size_t>(length)) : "";
		return got;
	}

	OsiIPCommsBase comms;
	int far = -1;
};

struct Sending
{
	const char* name;
	std::function<void(OsiIPCommsBase&)> send;
	std::vector<Delivery> arrives; // with the messages left in each one's packet
	const char* says = "";
	std::int64_t firstIdentifier = 0; // as the first message carries it, when not 0
};

const std::string p400(400, 'p');

const Sending sendings[] = {
    {"nestedBracketsSendWhenTheOutermostCloses",
     [](OsiIPCommsBase& c) {
	     c.beginSend();
	     c.beginSend();
	     c.send(1, 1, "a");
	     c.endSend();
	     c.send(2, 1, "b");
	     c.endSend();
     },
     {{1, "a", 1}, {2, "b", 0}}},
    {"emptyMessagesAndUnmatchedEndsSendNothing",
     [](OsiIPCommsBase& c) {
	     c.send(1, 0, "x");
	     c.send(1, -3, "x");
	     c.send(1, 4, nullptr);
	     c.endSend();
	     c.send(9, 1, "z");
     },
     {{9, "z", 0}}},
    {"aLowerLimitSplitsABracket",
     [](OsiIPCommsBase& c) {
	     c.setMaximumPacketLength(1000);
	     c.beginSend();
	     for (int i = 0; i < 3; ++i)
		     c.send(i, 400, p400.data());
	     c.endSend();
     },
     {{0, p400, 1}, {1, p400, 0}, {2, p400, 0}}},
    {"aMessageOverTheLimitIsRefused",
     [](OsiIPCommsBase& c) {
	     c.setMaximumPacketLength(1000);
	     c.send(1, 2000, std::string(2000, 'x').data());
	     c.send(2, 2, "ok");
     },
     {{2, "ok", 0}},
     "2000 bytes"},
    {"negativeIdentifiersTravelSignExtended",
     [](OsiIPCommsBase& c) {
	     c.send(-7, 1, "n");
	     c.send(3, 1, "x");
     },
     {{3, "x", 0}},
     "",
     -7},
};

class Send : public testing::TestWithParam<Sending>
{};

TEST_P(Send, ArrivesAsTheDecoderReadsIt)
{
	Connection connection(false);
	testing::internal::CaptureStdout();
	GetParam().send(connection.comms);
	const std::string said = testing::internal::GetCapturedStdout();
	const auto bytes = wire::drain(connection.far);
	const wire::Outcome outcome = wire::decode(bytes);
	if (GetParam().firstIdentifier != 0)
	{
		ASSERT_GE(bytes.size(), 48u);
		EXPECT_EQ(wire::field(bytes.data() + 40), GetParam().firstIdentifier);
	}
	EXPECT_FALSE(outcome.closed);
	EXPECT_EQ(outcome.deliveries, GetParam().arrives);
	EXPECT_NE(said.find(GetParam().says), std::string::npos) << said;
}

INSTANTIATE_TEST_SUITE_P(Transport, Send, testing::ValuesIn(sendings),
                         [](const testing::TestParamInfo<Sending>& info) {
	                         return std::string(info.param.name);
                         });

// With a zero interval every receive pings or, the last ping unanswered, marks
// the peer closed: only a flag; a slow peer's messages and late answer count.
TEST(KeepAlive, AnsweredPingsKeepThePeerAliveAndASilentOneIsStillHeard)
{
	Connection connection(true);
	connection.comms.setKeepAliveInterval(std::chrono::milliseconds(0));
	OsiIPCommsBase peer(false); // writes on the raw end, never reads from it
	peer.attachSocket(dup(connection.far), false);
	const std::int32_t one = 1;
	std::string data;
	for (int round = 0; round < 3; ++round)
	{
		EXPECT_FALSE(connection.receive(data));
		EXPECT_FALSE(connection.comms.isPeerClosed()) << "round " << round;
		ASSERT_EQ(wire::decode(wire::drain(connection.far)).pings, 1) << "round " << round;
		if (round < 2)
			peer.send(OsiMessagePingAnswer, sizeof one, &one);
	}
	EXPECT_FALSE(connection.receive(data));
	EXPECT_TRUE(connection.comms.isPeerClosed());
	EXPECT_TRUE(connection.comms.isConnected()) << "the socket stays until it is closed";
	peer.beginSend();
	peer.send(OsiMessagePingAnswer, sizeof one, &one);
	peer.send(2, 4, "late");
	peer.endSend();
	ASSERT_TRUE(connection.receive(data));
	EXPECT_EQ(data, "late");
	EXPECT_EQ(wire::decode(wire::drain(connection.far)).pings, 1);
}

} // namespace
