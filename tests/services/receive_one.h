// Waits for one application message on a transport end, a few seconds at most.
#pragma once

#include "osi/services/coipcomms.h"

#include <chrono>
#include <string>

namespace wire {

struct Received
{
	int id = -100;
	int length = 0;
	int remaining = -1;
	std::string data;
};

// Receives until an application message comes or the peer is marked closed.
inline bool receiveOne(OsiIPCommsBase& comms, Received& got)
{
	const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
	while (std::chrono::steady_clock::now() < deadline && !comms.isPeerClosed())
	{
		void* data = nullptr;
		if (comms.receive(got.id, got.length, data, got.remaining))
		{
			got.data.assign(static_cast<const char*>(data), static_cast<size_t>(got.length));
			return true;
		}
		comms.waitForInput(20);
	}
	return false;
}

} // namespace wire
