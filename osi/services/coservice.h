// The program's side of a service: starts the service program as a child
// process on a free loopback port, connects to it, and hands the messages it
// sends to a ring of notification callbacks.
#pragma once

#include "osi/osd/osdprocess.h"
#include "osi/osd/osdsocket.h"
#include "osi/runtime/cocallback.h"
#include "osi/services/coipcomms.h"

#include <atomic>
#include <cstdint>

// What a notification callback receives as its message argument; data points
// into the transport's buffer and is valid during the callback only.
struct OsiServiceMessage
{
	int identifier;
	int length;
	const void* data;
};

// A member of a service's notification ring; its callback gets an
// OsiServiceMessage* and returns true to claim the message.
class OsiServiceNotificationCallbackInstance : public OsiCallbackInstance
{
public:
	using OsiCallbackInstance::OsiCallbackInstance;
};

class OsiService : public OsiIPCommsBase
{
public:
	// Starts program (a null program starts nothing; open it later).
	OsiService(const char* program, bool blocking);
	// Closes with closeWaitMilliseconds of grace for the service program.
	~OsiService() override;

	// Starts the program with the loopback address and a free port as its
	// arguments and connects to it; the connection is blocking as asked.
	bool open(const char* program, bool blocking);
	// Tells the service that this end closes and closes the connection; then
	// waits up to milliseconds for the service program to end before it is
	// killed.
	void close(int milliseconds);

	// Delivers the messages of one incoming packet to the notification ring,
	// newest callback first. Calls from inside a callback do nothing.
	void processNotifications();
	void addNotification(OsiServiceNotificationCallbackInstance* member);

	// The first port from NextPort on that can be bound on address, trying
	// 100 ports; 65535 when none can (or for a null address).
	static unsigned short findPort(const char* address);
	// Connects to address, up to attempts times, each after a pause of
	// delayMilliseconds; gives up early when the started program has ended.
	bool connectService(const OsdSocketAddress& address, int delayMilliseconds, int attempts);

	OsdProcessId servicePid() const { return child; }

	static std::atomic<std::uint16_t> NextPort;
	static constexpr unsigned short noPort = 65535;
	static constexpr int portsTried = 100;
	static constexpr int closeWaitMilliseconds = 2000;

private:
	bool childHasEnded();
	void endChild(int milliseconds);

	OsdSocketAddress serviceAddress;
	OsiCallbackInstance notifications;
	int notifying = 0;
	OsdProcessId child = -1;
};
