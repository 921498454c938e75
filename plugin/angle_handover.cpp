#include "angle_handover.h"

namespace Steinberg {
namespace Vst {

void AngleHandover::post(double degrees)
{
	const uint64_t v = version.load(std::memory_order_relaxed);
	version.store(v + 1, std::memory_order_relaxed);
	std::atomic_thread_fence(std::memory_order_release);
	beforeLast.store(last.load(std::memory_order_relaxed), std::memory_order_relaxed);
	last.store(degrees, std::memory_order_relaxed);
	posts.store(posts.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
	version.store(v + 2, std::memory_order_release);
}

void AngleHandover::takeInto(double& previous, double& current)
{
	const uint64_t before = version.load(std::memory_order_acquire);
	if (before % 2 != 0)
		return;
	const uint64_t count = posts.load(std::memory_order_relaxed);
	const double newest = last.load(std::memory_order_relaxed);
	const double older = beforeLast.load(std::memory_order_relaxed);
	std::atomic_thread_fence(std::memory_order_acquire);
	if (version.load(std::memory_order_relaxed) != before || count == taken)
		return;
	previous = count - taken == 1 ? current : older;
	current = newest;
	taken = count;
}

} // namespace Vst
} // namespace Steinberg
