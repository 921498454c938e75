// Pan angles restored on the user-interface thread, handed to the audio
// thread at the start of its next block, without a lock, an allocation or a
// system call. The audio thread applies what was restored since its last
// block as a restore applies it: the current angle moves into the previous
// one and the restored angle becomes current. Several restores between two
// blocks leave the pair that applying them one after another would leave, so
// a block sees the pair before the restores or after them, never a mix.
#pragma once

#include <atomic>
#include <cstdint>

namespace Steinberg {
namespace Vst {

static_assert(std::atomic<double>::is_always_lock_free &&
                  std::atomic<uint64_t>::is_always_lock_free,
              "the audio thread takes no lock");

class AngleHandover
{
public:
	// One thread only (the user-interface thread).
	void post(double degrees);
	// One thread only (the audio thread). A post that lands while the
	// restores are read leaves the pair as it is until the next call.
	void takeInto(double& previous, double& current);

private:
	// A sequence lock written by one thread: odd while a post is written.
	std::atomic<uint64_t> version{0};
	std::atomic<uint64_t> posts{0};
	std::atomic<double> last{0.0};
	std::atomic<double> beforeLast{0.0};
	// Posts already taken; the audio thread's own.
	uint64_t taken = 0;
};

} // namespace Vst
} // namespace Steinberg
