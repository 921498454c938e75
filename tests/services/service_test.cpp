// Services for real: the echo service program started as a child process on a
// loopback port, messages of 1 byte to 1 MiB there and back, notifications,
// keep-alive against a live peer, closing; and the choice of ports.
#include "osi/services/coservice.h"
#include "osi/services/coserviceprovider.h"
#include "services/receive_one.h"
#include "services/wire.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace {

using wire::Received;
using wire::receiveOne;

using Clock = std::chrono::steady_clock;

const char* const echoProgram = VELORA_ECHO_SERVICE;

// Every test process starts its port search at the same number, so test
// processes running side by side would pick the same ports and connect to
// each other's services; each starts somewhere else instead.
class SpreadPorts : public testing::Environment
{
public:
	void SetUp() override
	{
		OsiService::NextPort = static_cast<std::uint16_t>(20000 + (getpid() * 7919L) % 30000);
	}
};

const testing::Environment* const spreadPorts = testing::AddGlobalTestEnvironment(new SpreadPorts);

// Bytes that differ from message to message and along each message.
std::string patterned(int length, int seed)
{
	std::string data(static_cast<size_t>(length), '\0');
	for (int i = 0; i < length; ++i)
		data[static_cast<size_t>(i)] = static_cast<char>((i * 31 + seed * 7) & 0xFF);
	return data;
}

const std::vector<int> messageLengths = {1, 2, 15, 16, 17, 4095, 4096, 6144, 6145, 65536, 1 << 20};

class EchoService : public testing::TestWithParam<bool>
{
protected:
	void SetUp() override
	{
		service = std::make_unique<OsiService>(echoProgram, GetParam());
		ASSERT_TRUE(service->isConnected());
	}

	std::unique_ptr<OsiService> service;
};

TEST_P(EchoService, EchoesEachMessageSentAlone)
{
	int seed = 0;
	for (int length : messageLengths)
	{
		const std::string data = patterned(length, ++seed);
		service->send(seed, length, data.data());
		Received got;
		ASSERT_TRUE(receiveOne(*service, got)) << length << " bytes";
		EXPECT_EQ(got.id, seed);
		EXPECT_EQ(got.remaining, 0);
		EXPECT_TRUE(got.data == data) << length << " bytes came back changed";
	}
}

TEST_P(EchoService, EchoesABracketAsOnePacket)
{
	std::vector<std::string> sent;
	service->beginSend();
	for (int length : messageLengths)
	{
		sent.push_back(patterned(length, static_cast<int>(sent.size())));
		service->send(static_cast<int>(sent.size()) + 100, length, sent.back().data());
	}
	service->endSend();
	for (size_t i = 0; i < sent.size(); ++i)
	{
		Received got;
		ASSERT_TRUE(receiveOne(*service, got)) << "message " << i;
		EXPECT_EQ(got.id, static_cast<int>(i) + 101);
		EXPECT_EQ(got.remaining, static_cast<int>(sent.size() - i - 1))
		    << "the echo did not arrive in one packet";
		EXPECT_TRUE(got.data == sent[i]) << "message " << i << " came back changed";
	}
}

INSTANTIATE_TEST_SUITE_P(Service, EchoService, testing::Values(false, true),
                         [](const testing::TestParamInfo<bool>& info) {
	                         return std::string(info.param ? "Blocking" : "NonBlocking");
                         });

TEST(Service, OpeningPrintsWhereItConnects)
{
	const unsigned short next = OsiService::NextPort.load();
	testing::internal::CaptureStdout();
	OsiService service(echoProgram, false);
	const std::string said = testing::internal::GetCapturedStdout();
	ASSERT_TRUE(service.isConnected()) << said;
	EXPECT_GT(service.servicePid(), 0);
	const std::string program = echoProgram;
	const std::string prefix = "Connecting to " + program;
	const std::size_t connecting = said.find(prefix + " Address: 127.0.0.1 port: ");
	const std::size_t connected = said.find(program + " Connected.\n");
	ASSERT_NE(connecting, std::string::npos) << said;
	ASSERT_NE(connected, std::string::npos) << said;
	EXPECT_LT(connecting, connected);
	unsigned int port = 0;
	ASSERT_EQ(std::sscanf(said.c_str() + connecting + prefix.size(),
	                      " Address: 127.0.0.1 port: %u.", &port),
	          1);
	EXPECT_GE(port, next);
}

TEST(Service, AProgramThatCannotStartFailsToConnect)
{
	testing::internal::CaptureStdout();
	OsiService service("/nonexistent/velora service", false);
	const std::string said = testing::internal::GetCapturedStdout();
	EXPECT_FALSE(service.isConnected());
	EXPECT_EQ(service.servicePid(), -1);
	EXPECT_NE(said.find("/nonexistent/velora service Failed to connect.\n"), std::string::npos)
	    << said;
	OsiService none(nullptr, false);
	EXPECT_FALSE(none.open("", false));
}

struct Notified
{
	std::vector<int> ids;
	std::vector<std::string> data;
	int claimFrom = 0;
};

bool note(void* data, void* message)
{
	Notified& notified = *static_cast<Notified*>(data);
	const OsiServiceMessage& got = *static_cast<const OsiServiceMessage*>(message);
	notified.ids.push_back(got.identifier);
	notified.data.emplace_back(static_cast<const char*>(got.data), static_cast<size_t>(got.length));
	return got.identifier >= notified.claimFrom;
}

TEST(Service, NotificationsReachTheNewestCallbackFirst)
{
	OsiService service(echoProgram, false);
	ASSERT_TRUE(service.isConnected());
	Notified older;
	Notified newer;
	newer.claimFrom = 10;
	OsiServiceNotificationCallbackInstance olderMember(note, &older);
	OsiServiceNotificationCallbackInstance newerMember(note, &newer);
	service.addNotification(&olderMember);
	service.addNotification(&newerMember);

	service.beginSend();
	service.send(3, 5, "three");
	service.send(12, 6, "twelve");
	service.endSend();
	const auto deadline = Clock::now() + std::chrono::seconds(5);
	while (newer.ids.size() < 2 && Clock::now() < deadline)
	{
		service.waitForInput(20);
		service.processNotifications();
	}
	EXPECT_EQ(newer.ids, (std::vector<int>{3, 12}));
	EXPECT_EQ(newer.data, (std::vector<std::string>{"three", "twelve"}));
	EXPECT_EQ(older.ids, std::vector<int>{3}) << "a claimed message went on to older callbacks";
}

TEST(Service, AnAnsweringServiceStaysAliveAcrossKeepAliveChecks)
{
	OsiService service(echoProgram, false);
	ASSERT_TRUE(service.isConnected());
	// Several checks, each with time for a busy machine to answer.
	service.setKeepAliveInterval(std::chrono::milliseconds(200));
	const auto end = Clock::now() + std::chrono::milliseconds(900);
	while (Clock::now() < end)
	{
		service.processNotifications();
		service.waitForInput(5);
	}
	EXPECT_FALSE(service.isPeerClosed());
	service.send(1, 2, "ok");
	Received got;
	EXPECT_TRUE(receiveOne(service, got));
}

TEST(Service, ClosingEndsTheServiceProgram)
{
	OsiService service(echoProgram, true);
	ASSERT_TRUE(service.isConnected());
	const pid_t pid = service.servicePid();
	service.close(3000);
	EXPECT_FALSE(service.isConnected());
	EXPECT_EQ(service.servicePid(), -1);
	errno = 0;
	EXPECT_EQ(kill(pid, 0), -1) << "the service program is still there";
	EXPECT_EQ(errno, ESRCH);
}

// The service program killed in mid-conversation: the next send or receive
// marks the peer closed, nothing raises SIGPIPE, and close returns.
class KilledService : public testing::TestWithParam<std::tuple<bool, bool>>
{};

TEST_P(KilledService, TheNextTransferFindsThePeerClosed)
{
	const auto [blocking, sendingNext] = GetParam();
	OsiService service(echoProgram, blocking);
	ASSERT_TRUE(service.isConnected());
	// Two exchanges: the answer to the first receive's ping comes before the
	// second echo, and then nothing is on its way.
	Received got;
	for (const char* text : {"hello", "again"})
	{
		service.send(1, 5, text);
		ASSERT_TRUE(receiveOne(service, got));
	}
	ASSERT_EQ(kill(service.servicePid(), SIGKILL), 0);
	// What arrives now is the end of the connection, once the system has
	// closed the program's socket.
	ASSERT_TRUE(service.waitForInput(30000));
	void* data = nullptr;
	if (sendingNext)
		service.send(2, 4, "more");
	else
		EXPECT_FALSE(service.receive(got.id, got.length, data, got.remaining));
	EXPECT_TRUE(service.isPeerClosed());
	service.close(OsiService::closeWaitMilliseconds);
	EXPECT_EQ(service.servicePid(), -1);
}

INSTANTIATE_TEST_SUITE_P(Service, KilledService, testing::Combine(testing::Bool(), testing::Bool()),
                         [](const testing::TestParamInfo<std::tuple<bool, bool>>& info) {
	                         return std::string(std::get<0>(info.param) ? "Blocking"
	                                                                    : "NonBlocking") +
	                                (std::get<1>(info.param) ? "Send" : "Receive");
                         });

// --- ports ---------------------------------------------------------------------

// Binds count loopback ports from first on, all or none.
std::vector<int> occupyPorts(unsigned short first, int count)
{
	std::vector<int> sockets;
	for (int i = 0; i < count; ++i)
	{
		const int handle = socket(AF_INET, SOCK_STREAM, 0);
		sockaddr_in address{};
		address.sin_family = AF_INET;
		address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
		address.sin_port = htons(static_cast<unsigned short>(first + i));
		if (bind(handle, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
		{
			close(handle);
			for (int taken : sockets)
				close(taken);
			return {};
		}
		sockets.push_back(handle);
	}
	return sockets;
}

// A run of count free ports somewhere in a quiet range, held open.
std::vector<int> occupyFreeRun(unsigned short& first, int count)
{
	for (first = 41000; first < 60000; first = static_cast<unsigned short>(first + 500))
	{
		std::vector<int> sockets = occupyPorts(first, count);
		if (!sockets.empty())
			return sockets;
	}
	return {};
}

TEST(FindPort, ReturnsNoPortWhenAllHundredPortsAreTaken)
{
	unsigned short first = 0;
	const std::vector<int> sockets = occupyFreeRun(first, OsiService::portsTried);
	ASSERT_EQ(sockets.size(), static_cast<size_t>(OsiService::portsTried));
	OsiService::NextPort = first;
	EXPECT_EQ(OsiService::findPort("127.0.0.1"), OsiService::noPort);
	EXPECT_EQ(OsiService::NextPort.load(), first + OsiService::portsTried);
	for (int handle : sockets)
		close(handle);
}

TEST(FindPort, SkipsTakenPortsAndMovesTheCounterOn)
{
	unsigned short first = 0;
	const std::vector<int> sockets = occupyFreeRun(first, 4);
	ASSERT_EQ(sockets.size(), 4u);
	close(sockets[3]);
	OsiService::NextPort = first;
	EXPECT_EQ(OsiService::findPort("127.0.0.1"), first + 3);
	EXPECT_EQ(OsiService::NextPort.load(), first + 4);
	for (int i = 0; i < 3; ++i)
		close(sockets[static_cast<size_t>(i)]);
	// The port is free again: the counter alone keeps it for its service.
	const std::vector<int> again = occupyPorts(static_cast<unsigned short>(first + 3), 1);
	EXPECT_EQ(again.size(), 1u);
	for (int handle : again)
		close(handle);
}

TEST(FindPort, RefusesANullOrMalformedAddress)
{
	const unsigned short next = OsiService::NextPort.load();
	EXPECT_EQ(OsiService::findPort(nullptr), OsiService::noPort);
	EXPECT_EQ(OsiService::findPort("localhost:80"), OsiService::noPort);
	EXPECT_EQ(OsiService::NextPort.load(), next);
}

TEST(FindPort, NeverHandsOutPortZeroOrTheFailureValue)
{
	const std::uint16_t next = OsiService::NextPort.load();
	OsiService::NextPort = 65534;
	const unsigned short port = OsiService::findPort("127.0.0.1");
	EXPECT_NE(port, 0);
	EXPECT_TRUE(port == 65534 || port == OsiService::noPort || (port >= 1 && port < 100)) << port;
	OsiService::NextPort = next;
}

// --- the provider's side ---------------------------------------------------------

TEST(Provider, AcceptsOneConnectionAndPrintsIt)
{
	unsigned short port = 0;
	std::vector<int> held = occupyFreeRun(port, 1);
	ASSERT_EQ(held.size(), 1u);
	close(held[0]);
	const std::string portText = std::to_string(port);

	testing::internal::CaptureStdout();
	std::thread client([port] {
		sockaddr_in address{};
		address.sin_family = AF_INET;
		address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
		address.sin_port = htons(port);
		for (int attempt = 0; attempt < 100; ++attempt)
		{
			const int handle = socket(AF_INET, SOCK_STREAM, 0);
			if (connect(handle, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0)
			{
				OsiIPCommsBase comms(false);
				comms.attachSocket(handle, false);
				comms.send(4, 5, "hello");
				Received got;
				receiveOne(comms, got);
				return;
			}
			close(handle);
			std::this_thread::sleep_for(std::chrono::milliseconds(20));
		}
	});
	OsiServiceProvider provider("127.0.0.1", portText.c_str(), false);
	Received got;
	const bool received = receiveOne(provider, got);
	provider.close();
	client.join();
	const std::string said = testing::internal::GetCapturedStdout();
	EXPECT_TRUE(received);
	EXPECT_EQ(got.data, "hello");
	EXPECT_NE(said.find("Waiting for provider to connect to Address: 127.0.0.1 port: " + portText +
	                    ".\n"),
	          std::string::npos)
	    << said;
	EXPECT_NE(said.find("Provider Connected to Address: 127.0.0.1 port: " + portText + ".\n"),
	          std::string::npos)
	    << said;
}

TEST(Provider, ABusyPortOrBadArgumentsFailToBind)
{
	unsigned short port = 0;
	std::vector<int> held = occupyFreeRun(port, 1);
	ASSERT_EQ(held.size(), 1u);
	ASSERT_EQ(listen(held[0], 1), 0);
	const std::string portText = std::to_string(port);
	testing::internal::CaptureStdout();
	OsiServiceProvider busy("127.0.0.1", portText.c_str(), false);
	OsiServiceProvider badPort("127.0.0.1", "70000", false);
	OsiServiceProvider badAddress("no address", "5000", false);
	char program[] = "service";
	char* tooFew[] = {program};
	OsiServiceProvider unopened(1, tooFew, false);
	const std::string said = testing::internal::GetCapturedStdout();
	close(held[0]);
	EXPECT_FALSE(busy.isConnected());
	EXPECT_FALSE(badPort.isConnected());
	EXPECT_FALSE(badAddress.isConnected());
	EXPECT_FALSE(unopened.isConnected());
	EXPECT_EQ(said, "bind() failed.\nbind() failed.\nbind() failed.\n");
}

} // namespace
