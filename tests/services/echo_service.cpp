// A service program that sends every application message back as it came,
// grouped in packets as it arrived. OsiService starts it with the address and
// port to listen on; it ends when its client closes or goes away.
//
//   velora_echo_service 127.0.0.1 27015
#include "osi/services/coserviceprovider.h"

#include <unistd.h>

#include <cstdio>

namespace {

// A client that never connects must not leave this program waiting forever.
constexpr unsigned int connectTimeLimitSeconds = 60;

void echo(OsiServiceProvider& provider)
{
	bool bracketOpen = false;
	while (provider.isConnected() && !provider.isPeerClosed())
	{
		int id = 0;
		int length = 0;
		int remaining = 0;
		void* data = nullptr;
		if (provider.receive(id, length, data, remaining))
		{
			if (!bracketOpen)
				provider.beginSend();
			bracketOpen = true;
			provider.send(id, length, data);
		}
		if (bracketOpen && remaining == 0)
		{
			provider.endSend();
			bracketOpen = false;
		}
	}
}

} // namespace

int main(int argc, char** argv)
{
	if (argc < 3)
	{
		std::fprintf(stderr, "usage: %s address port\n", argv[0]);
		return 2;
	}
	alarm(connectTimeLimitSeconds);
	OsiServiceProvider provider(argc, argv, true);
	alarm(0);
	if (!provider.isConnected())
		return 1;
	echo(provider);
	provider.close();
	return 0;
}
