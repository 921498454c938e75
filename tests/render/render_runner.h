// Runs the built velora-render (VELORA_RENDER) as a subprocess, as a user
// does, in a scratch folder of its own per test.
#pragma once

#include <gtest/gtest.h>

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
	void TearDown() override;

	// A path in the test's scratch folder.
	std::string path(const std::string& name) const;
	// Runs the tool with `args` in the scratch folder and waits for it. A
	// non-zero `fileSizeLimit` (bytes) makes every write past it fail, as on a
	// full disk.
	RenderRun render(const std::vector<std::string>& args, long fileSizeLimit = 0) const;
	// Starts the tool without waiting; returns its process id. With
	// `stdoutPipe`, its standard output goes to a pipe whose reading end
	// this returns there, to be closed after finish.
	int start(const std::vector<std::string>& args, long fileSizeLimit = 0,
	          int* stdoutPipe = nullptr) const;
	RenderRun finish(int pid) const;
	// The names in the scratch folder, hidden ones included.
	std::vector<std::string> folderContents() const;

	std::string folder;
};

} // namespace velora_test
