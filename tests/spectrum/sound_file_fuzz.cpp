// Arbitrary bytes as an audio file for the analysis: a clear failure or a
// spectrum, nothing else.
#include "spectrum_analyser.h"
#include "spectrum_failure.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
	// The bytes as a file that leaves nothing behind.
	static const int fd = memfd_create("sound", 0);
	static const std::string path = "/proc/self/fd/" + std::to_string(fd);
	if (ftruncate(fd, 0) != 0 || pwrite(fd, data, size, 0) != static_cast<ssize_t>(size))
		return 0;
	try
	{
		velora_spectrum::SpectrumAnalyser({64}).analyse(path);
	}
	catch (const velora_spectrum::SpectrumFailure&)
	{}
	return 0;
}
