// Automation files are text from anywhere: any bytes must either parse into
// a curve whose angles stay within -90..90, or fail with a message.
#include "automation_file.h"
#include "failure.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
	std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
	try
	{
		const velora_render::PanCurve curve = velora_render::parseAutomation(in, "fuzz.txt");
		for (double t : {-1.0, 0.0, 0.001, 0.5, 1.0, 2.5, 10.0, 1e6, 1e300})
		{
			const double degrees = curve.at(t);
			if (!(degrees >= -90.0 && degrees <= 90.0))
				std::abort();
		}
	}
	catch (const velora_render::Failure& failure)
	{
		if (failure.status() != 1 || std::string(failure.what()).rfind("fuzz.txt", 0) != 0)
			std::abort();
	}
	return 0;
}
