#include "render/render_runner.h"
#include "render/sound_files.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace velora_test {
namespace {

const char* const tool = std::getenv("VELORA_RENDER");

} // namespace

void RenderTest::SetUp()
{
	ASSERT_NE(tool, nullptr) << "VELORA_RENDER is not set";
	ASSERT_FALSE(scratch.path().empty());
}

std::string RenderTest::path(const std::string& name) const
{
	return scratch.path(name);
}

std::unique_ptr<ToolProcess> RenderTest::start(const std::vector<std::string>& args,
                                               long fileSizeLimit) const
{
	return std::make_unique<ToolProcess>(tool, args,
	                                     ToolSurroundings{true, scratch.path(), fileSizeLimit});
}

RenderRun RenderTest::finish(ToolProcess& tool)
{
	RenderRun run;
	run.status = tool.finish();
	run.out = tool.rest();
	run.err = tool.errors();
	return run;
}

RenderRun RenderTest::render(const std::vector<std::string>& args, long fileSizeLimit) const
{
	return finish(*start(args, fileSizeLimit));
}

std::vector<std::string> RenderTest::files(const std::string& sub) const
{
	const std::string top = sub.empty() ? scratch.path() : path(sub);
	std::vector<std::string> names;
	for (const auto& entry : std::filesystem::recursive_directory_iterator(top))
		if (entry.is_regular_file())
			names.push_back(entry.path().lexically_relative(top).string());
	std::sort(names.begin(), names.end());
	return names;
}

} // namespace velora_test
