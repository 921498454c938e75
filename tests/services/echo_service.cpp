// A service program that sends every application message back as it came,
// grouped in packets as it arrived. OsiService starts it with the address and
// port to listen on; it ends when its client closes or goes away.
//
//   velora_echo_service 127.0.0.1 27015
#include "osi/services/coserviceprovider.h"

#include <unistd.h>

int main(int argc, char** argv)
{
	// A client that never connects must not leave this program waiting forever.
	alarm(60);
	OsiServiceProvider provider(argc, argv, true);
	alarm(0);
	if (!provider.isConnected())
		return 1;
	for (bool bracketOpen = false; provider.isConnected() && !provider.isPeerClosed();)
	{
		int id = 0, length = 0, remaining = 0;
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
	provider.close();
	return 0;
}
