#include "render/render_runner.h"
#include "render/sound_files.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace velora_test {
namespace {

const char* const tool = std::getenv("VELORA_RENDER");

} // namespace

void RenderTest::SetUp()
{
	ASSERT_NE(tool, nullptr) << "VELORA_RENDER is not set";
	std::string pattern = std::filesystem::temp_directory_path() / "velora-render-test.XXXXXX";
	ASSERT_NE(mkdtemp(pattern.data()), nullptr);
	folder = pattern;
}

void RenderTest::TearDown()
{
	if (!folder.empty())
		std::filesystem::remove_all(folder);
}

std::string RenderTest::path(const std::string& name) const
{
	return folder + "/" + name;
}

int RenderTest::start(const std::vector<std::string>& args, long fileSizeLimit,
                      int* stdoutPipe) const
{
	const std::string program = tool;
	std::vector<char*> argv;
	argv.push_back(const_cast<char*>(program.c_str()));
	for (const auto& a : args)
		argv.push_back(const_cast<char*>(a.c_str()));
	argv.push_back(nullptr);
	const std::string outPath = folder + "/.stdout";
	const std::string errPath = folder + "/.stderr";

	int pipeEnds[2] = {-1, -1};
	if (stdoutPipe && pipe(pipeEnds) != 0)
		return -1;
	const pid_t pid = fork();
	if (pid == 0)
	{
		const int out =
		    stdoutPipe ? pipeEnds[1] : open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
		const int err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
		if (out < 0 || err < 0 || chdir(folder.c_str()) != 0)
			_exit(127);
		dup2(out, STDOUT_FILENO);
		dup2(err, STDERR_FILENO);
		if (fileSizeLimit > 0)
		{
			// A write past the limit then fails with EFBIG instead of killing.
			signal(SIGXFSZ, SIG_IGN);
			const struct rlimit limit = {static_cast<rlim_t>(fileSizeLimit),
			                             static_cast<rlim_t>(fileSizeLimit)};
			setrlimit(RLIMIT_FSIZE, &limit);
		}
		if (stdoutPipe)
			close(pipeEnds[0]);
		execv(program.c_str(), argv.data());
		_exit(127);
	}
	if (stdoutPipe)
	{
		close(pipeEnds[1]);
		*stdoutPipe = pipeEnds[0];
	}
	return pid;
}

RenderRun RenderTest::finish(int pid) const
{
	RenderRun run;
	int status = 0;
	if (waitpid(pid, &status, 0) != pid)
		return run;
	run.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
	run.out = readBytes(folder + "/.stdout");
	run.err = readBytes(folder + "/.stderr");
	std::filesystem::remove(folder + "/.stdout");
	std::filesystem::remove(folder + "/.stderr");
	return run;
}

RenderRun RenderTest::render(const std::vector<std::string>& args, long fileSizeLimit) const
{
	return finish(start(args, fileSizeLimit));
}

std::vector<std::string> RenderTest::files(const std::string& sub) const
{
	const std::string top = sub.empty() ? folder : path(sub);
	std::vector<std::string> names;
	for (const auto& entry : std::filesystem::recursive_directory_iterator(top))
		if (entry.is_regular_file())
			names.push_back(entry.path().lexically_relative(top).string());
	std::sort(names.begin(), names.end());
	return names;
}

} // namespace velora_test
