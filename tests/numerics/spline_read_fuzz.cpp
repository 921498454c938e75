// Arbitrary bytes as a structured file, whole or as the body after a valid
// header (first byte); up to four splines read from it and evaluated.
#include "osi/numerics/osicubicsplineinterpolator.h"
#include "persist/osistructuredfile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

namespace {

const char kTopClass[] = "SplineFuzz";

// The bytes live in an anonymous memory file, reached through its path.
struct MemoryFile
{
	MemoryFile()
	: fd(memfd_create("spline_read_fuzz", 0)),
	  path("/proc/self/fd/" + std::to_string(fd))
	{}

	bool fill(const uint8_t* data, size_t size, bool withHeader)
	{
		if (fd < 0 || ftruncate(fd, 0) != 0)
			return false;
		off_t at = 0;
		if (withHeader)
		{
			OsiStructuredFile header(kTopClass, 1);
			if (!header.open(path.c_str(), true) || !header.close(true))
				return false;
			at = lseek(fd, 0, SEEK_END);
		}
		return pwrite(fd, data, size, at) == static_cast<ssize_t>(size);
	}

	int fd;
	std::string path;
};

void evaluate(const OsiCubicSplineInterpolator& spline)
{
	OsiCubicSplineContext context;
	volatile double sink = 0.0;
	for (int i = 0; i < spline.count() && i < 64; ++i)
	{
		const double x = spline.knots()[i].x + 0.5;
		spline.findContext(x, context);
		sink = sink + spline.evaluateContext(x, context);
	}
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	static MemoryFile memory;
	if (size == 0 || !memory.fill(data + 1, size - 1, data[0] & 1))
		return 0;
	OsiStructuredFile file(kTopClass, 1);
	if (!file.open(memory.path.c_str(), false))
		return 0;
	OsiCubicSplineInterpolator spline;
	for (int i = 0; i < 4 && spline.read(file); ++i)
		evaluate(spline);
	file.close(false);
	return 0;
}
