// Runs the built velora-render (VELORA_RENDER) as a subprocess, as a user
// does, in a scratch folder of its own per test.
#pragma once

#include "support/temp_folder.h"
#include "support/tool_process.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace velora_test {

struct RenderRun
{
	int status = -1; // exit status, or 128 + signal
	std::string out; // standard output (the report)
	std::string err; // standard error (notices and errors)
};

class RenderTest : public ::testing::Test
{
protected:
	void SetUp() override;

	// A path in the test's scratch folder.
	std::string path(const std::string& name) const;
	// Runs the tool with `args` in the scratch folder and waits for it; writes
	// past a non-zero `fileSizeLimit` (bytes) fail, as on a full disk.
	RenderRun render(const std::vector<std::string>& args, long fileSizeLimit = 0) const;
	// Starts the tool in the scratch folder, without waiting.
	std::unique_ptr<ToolProcess> start(const std::vector<std::string>& args,
	                                   long fileSizeLimit = 0) const;
	// Waits for a started tool's end.
	static RenderRun finish(ToolProcess& tool);
	// The files under the scratch folder (or its `sub`folder), relative to
	// it, hidden ones included.
	std::vector<std::string> files(const std::string& sub = "") const;

	TempFolder scratch;
};

} // namespace velora_test
