#include "interruption.h"

#include <csignal>
#include <initializer_list>

namespace velora_render {
namespace {

volatile std::sig_atomic_t caught = 0;

void onSignal(int signal)
{
	caught = signal;
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
	return caught;
}

} // namespace velora_render
