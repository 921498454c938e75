#include "osi/osd/osdprocessors.h"

#if defined(__APPLE__)
#include <sys/sysctl.h>
#include <sys/types.h>
#else
#include <sched.h>
#include <unistd.h>
#endif

#include <cstddef>

namespace {

#if defined(__APPLE__)
int sysctlCount(int name)
{
	int selector[2] = {CTL_HW, name};
	int count = 0;
	size_t length = sizeof count;
	if (sysctl(selector, 2, &count, &length, nullptr, 0) != 0)
		return 0;
	return count;
}
#endif

int availableProcessors()
{
#if defined(__APPLE__)
	const int count = sysctlCount(HW_AVAILCPU);
	return count >= 1 ? count : sysctlCount(HW_NCPU);
#else
	// The processors this process may run on, then those online.
	cpu_set_t set;
	if (sched_getaffinity(0, sizeof set, &set) == 0 && CPU_COUNT(&set) >= 1)
		return CPU_COUNT(&set);
	return static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN));
#endif
}

} // namespace

int osdNumberOfProcessors()
{
	const int count = availableProcessors();
	return count < 1 ? 1 : count;
}
