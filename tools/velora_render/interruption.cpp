#include "interruption.h"

#include <atomic>
#include <csignal>
#include <initializer_list>

namespace velora_render {
namespace {

// Read by the threads that render: lock-free, so the handler may set it.
std::atomic<int> caught{0};

void onSignal(int signal)
{
	caught.store(signal, std::memory_order_relaxed);
}

} // namespace

void catchInterruptions()
{
	struct sigaction action = {};
	action.sa_handler = onSignal;
	sigemptyset(&action.sa_mask);
	for (int signal : {SIGINT, SIGTERM, SIGHUP})
		sigaction(signal, &action, nullptr);
}

int interruption()
{
	return caught.load(std::memory_order_relaxed);
}

} // namespace velora_render
