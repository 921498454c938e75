// Services for real: the echo service program started as a child process on a
// loopback port, messages of 1 byte to 1 MiB there and back, notifications,
// closing and a killed program; the choice of ports and the provider's side.
#include "osi/services/coservice.h"
#include "osi/services/coserviceprovider.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <string>
#include <tuple>
#include <vector>

namespace {

const char* const echoProgram = VELORA_ECHO_SERVICE;

// Test processes running side by side would otherwise search ports from the
// same number and connect to each other's services.
const auto* const spreadPorts = [] {
	OsiService::NextPort = static_cast<std::uint16_t>(20000 + (getpid() * 7919L) % 30000);
	return &OsiService::NextPort;
}();

struct Received
{
	int id = -100;
	int remaining = -1;
	std::string data;
};

// Receives until an application message comes (true) or the peer is marked
// closed, a few seconds at most.
bool receiveOne(OsiIPCommsBase& comms, Received& got)
{
	const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
	for (int length = 0; std::chrono::steady_clock::now() < deadline && !comms.isPeerClosed();
	     comms.waitForInput(20))
	{
		void* data = nullptr;
		if (comms.receive(got.id, length, data, got.remaining))
			return got.data.assign(static_cast<const char*>(data), size_t(length)), true;
	}
	return false;
}

// Bytes that differ from message to message and along each message.
std::string patterned(int length, int seed)
{
	std::string data(static_cast<size_t>(length), '\0');
	for (int i = 0; i < length; ++i)
		data[static_cast<size_t>(i)] = static_cast<char>((i * 31 + seed * 7) & 0xFF);
	return data;
}

// (blocking, in one bracket): each message comes back in a packet as it went.
// Then the service is closed, ending the program, or the program is killed and
// the next send or receive finds the peer closed without a SIGPIPE.
class EchoService : public testing::TestWithParam<std::tuple<bool, bool>>
{};

TEST_P(EchoService, EchoesEveryLengthUnchangedAndEnds)
{
	const auto [blocking, bracket] = GetParam();
	const std::vector<int> lengths = {1, 2, 15, 16, 17, 4095, 4096, 6144, 6145, 65536, 1 << 20};
	const int count = static_cast<int>(lengths.size());
	OsiService service(echoProgram, blocking);
	ASSERT_TRUE(service.isConnected());
	Received got;
	const auto echoed = [&](int i, int remaining) {
		const bool came = receiveOne(service, got);
		EXPECT_EQ(std::tie(got.id, got.remaining), std::tie(i, remaining));
		EXPECT_TRUE(got.data == patterned(lengths[i], i))
		    << lengths[i] << " bytes came back changed";
		return came;
	};
	if (bracket)
		service.beginSend();
	for (int i = 0; i < count; ++i)
	{
		service.send(i, lengths[i], patterned(lengths[i], i).data());
		ASSERT_TRUE(bracket || echoed(i, 0)) << "message " << i;
	}
	if (bracket)
		service.endSend();
	for (int i = 0; bracket && i < count; ++i)
		ASSERT_TRUE(echoed(i, count - i - 1)) << "message " << i;

	const pid_t pid = service.servicePid();
	if (!bracket)
	{
		// The answer to the first ping came before the second echo: what
		// arrives now is the end of the connection.
		ASSERT_EQ(kill(pid, SIGKILL), 0);
		ASSERT_TRUE(service.waitForInput(30000));
		if (blocking)
			service.send(2, 4, "more");
		EXPECT_TRUE(blocking || !receiveOne(service, got));
		EXPECT_TRUE(service.isPeerClosed());
	}
	service.close(OsiService::closeWaitMilliseconds);
	EXPECT_FALSE(service.isConnected());
	EXPECT_EQ(service.servicePid(), -1);
	errno = 0;
	EXPECT_EQ(kill(pid, 0), -1) << "the service program is still there";
	EXPECT_EQ(errno, ESRCH);
}

INSTANTIATE_TEST_SUITE_P(Service, EchoService, testing::Combine(testing::Bool(), testing::Bool()));

bool note(void* data, void* message)
{
	const OsiServiceMessage& got = *static_cast<const OsiServiceMessage*>(message);
	static_cast<std::vector<std::string>*>(data)->push_back(
	    std::to_string(got.identifier) + " " +
	    std::string(static_cast<const char*>(got.data), static_cast<size_t>(got.length)));
	return true;
}

// Where it connects is printed; notifications carry what arrives; a program
// that cannot start fails to connect.
TEST(Service, PrintsWhereItConnectsAndNotifiesEveryMessage)
{
	const unsigned short next = OsiService::NextPort.load();
	testing::internal::CaptureStdout();
	OsiService service(echoProgram, false);
	OsiService missing("/nonexistent/velora service", false);
	const std::string said = testing::internal::GetCapturedStdout();
	ASSERT_TRUE(service.isConnected()) << said;
	const std::string prefix =
	    "Connecting to " + std::string(echoProgram) + " Address: 127.0.0.1 port: ";
	const std::size_t connecting = said.find(prefix);
	ASSERT_LT(connecting, said.find(std::string(echoProgram) + " Connected.\n")) << said;
	EXPECT_GE(std::stoi(said.substr(connecting + prefix.size())), next);
	EXPECT_FALSE(missing.isConnected());
	EXPECT_EQ(missing.servicePid(), -1);
	EXPECT_NE(said.find("/nonexistent/velora service Failed to connect.\n"), std::string::npos);
	EXPECT_FALSE(missing.open("", false));

	std::vector<std::string> notified;
	OsiServiceNotificationCallbackInstance member(note, &notified);
	service.addNotification(&member);
	service.beginSend();
	service.send(3, 5, "three");
	service.send(12, 6, "twelve");
	service.endSend();
	for (int wait = 0; wait < 500 && notified.size() < 2; ++wait)
	{
		service.waitForInput(20);
		service.processNotifications();
	}
	EXPECT_EQ(notified, (std::vector<std::string>{"3 three", "12 twelve"}));
}

// A run of count free loopback ports somewhere in a quiet range, held open.
std::vector<int> occupyFreeRun(unsigned short& first, int count)
{
	sockaddr_in address{};
	address.sin_family = AF_INET;
	address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
	for (first = 41000; first < 60000; first = static_cast<unsigned short>(first + 500))
	{
		std::vector<int> sockets;
		for (int i = 0; i < count; ++i)
		{
			const int handle = socket(AF_INET, SOCK_STREAM, 0);
			address.sin_port = htons(static_cast<unsigned short>(first + i));
			if (bind(handle, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
			{
				close(handle);
				break;
			}
			sockets.push_back(handle);
		}
		if (sockets.size() == static_cast<size_t>(count))
			return sockets;
		for (int taken : sockets)
			close(taken);
	}
	return {};
}

// Of a run of held ports, the last few let go again: the port found (an offset
// from the run's start, or -1) and where the search goes on.
struct PortSearch
{
	const char* address;
	int held;
	int freed;
	int found;
	int next;
};

class FindPort : public testing::TestWithParam<PortSearch>
{};

TEST_P(FindPort, TakesTheFirstFreePortAndMovesTheCounterOn)
{
	const PortSearch& search = GetParam();
	unsigned short first = 0;
	std::vector<int> sockets = occupyFreeRun(first, search.held);
	ASSERT_EQ(sockets.size(), static_cast<size_t>(search.held));
	for (int i = 0; i < search.held; ++i)
		if (i >= search.held - search.freed)
			close(sockets[static_cast<size_t>(i)]);
	OsiService::NextPort = first;
	const unsigned short port = OsiService::findPort(search.address);
	EXPECT_EQ(port, search.found < 0 ? OsiService::noPort : first + search.found);
	EXPECT_EQ(OsiService::NextPort.load(), first + search.next);
	for (int i = 0; i < search.held - search.freed; ++i)
		close(sockets[static_cast<size_t>(i)]);
}

INSTANTIATE_TEST_SUITE_P(Service, FindPort,
                         testing::Values(PortSearch{"127.0.0.1", 4, 1, 3, 4},
                                         PortSearch{"127.0.0.1", OsiService::portsTried, 0, -1,
                                                    OsiService::portsTried},
                                         PortSearch{nullptr, 1, 1, -1, 0}));

TEST(Provider, ABusyPortOrBadArgumentsFailToBind)
{
	unsigned short port = 0;
	std::vector<int> held = occupyFreeRun(port, 1);
	ASSERT_EQ(held.size(), 1u);
	ASSERT_EQ(listen(held[0], 1), 0);
	char program[] = "service";
	char* tooFew[] = {program};
	testing::internal::CaptureStdout();
	const OsiServiceProvider providers[] = {{"127.0.0.1", std::to_string(port).c_str(), false},
	                                        {"127.0.0.1", "70000", false},
	                                        {"no address", "5000", false},
	                                        {1, tooFew, false}};
	EXPECT_EQ(testing::internal::GetCapturedStdout(),
	          "bind() failed.\nbind() failed.\nbind() failed.\n");
	close(held[0]);
	for (const OsiServiceProvider& provider : providers)
		EXPECT_FALSE(provider.isConnected());
}

} // namespace
