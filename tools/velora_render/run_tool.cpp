#include "run_tool.h"

#include "failure.h"

#include <cstdio>

namespace velora_render {

int runTool(const char* name, int (*run)(int argc, const char* const* argv), int argc, char** argv)
{
	try
	{
		return run(argc, argv);
	}
	catch (const Failure& failure)
	{
		std::fprintf(stderr, "%s: %s\n", name, failure.what());
		return failure.status();
	}
	catch (const std::exception& error)
	{
		std::fprintf(stderr, "%s: %s\n", name, error.what());
		return kExitRuntime;
	}
}

} // namespace velora_render
