#include "pending_file.h"

#include "failure.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace velora_render {
namespace {

std::string temporaryPattern(const std::string& target)
{
	const auto slash = target.find_last_of('/');
	const std::string folder = slash == std::string::npos ? "" : target.substr(0, slash + 1);
	const std::string name = slash == std::string::npos ? target : target.substr(slash + 1);
	return folder + "." + name + ".XXXXXX";
}

// The mode a new file would get, or the existing target's own.
mode_t modeFor(const std::string& target)
{
	struct stat existing = {};
	if (stat(target.c_str(), &existing) == 0)
		return existing.st_mode & 07777;
	const mode_t mask = umask(0);
	umask(mask);
	return 0666 & ~mask;
}

} // namespace

PendingFile::PendingFile(const std::string& target, const std::string& what)
: targetPath(target),
  role(what)
{
	struct stat existing = {};
	if (stat(target.c_str(), &existing) == 0)
	{
		if (S_ISDIR(existing.st_mode))
			throw runtimeError("cannot write " + role + " '" + target + "': it is a directory");
		if (access(target.c_str(), W_OK) != 0)
			fail("write");
	}
	std::string pattern = temporaryPattern(target);
	std::vector<char> name(pattern.begin(), pattern.end());
	name.push_back('\0');
	fd = mkstemp(name.data());
	if (fd < 0)
		fail("write");
	temporaryPath = name.data();
	if (fchmod(fd, modeFor(target)) != 0)
		fail("write");
}

PendingFile::~PendingFile()
{
	if (fd >= 0)
		close(fd);
	if (!committed && !temporaryPath.empty())
		unlink(temporaryPath.c_str());
}

void PendingFile::write(const void* data, std::size_t size)
{
	const char* bytes = static_cast<const char*>(data);
	while (size > 0)
	{
		const ssize_t written = ::write(fd, bytes, size);
		if (written < 0 && errno == EINTR)
			continue;
		if (written <= 0)
			fail("write");
		bytes += written;
		size -= static_cast<std::size_t>(written);
	}
}

void PendingFile::commit()
{
	if (fsync(fd) != 0)
		fail("write");
	const int closing = fd;
	fd = -1;
	if (close(closing) != 0)
		fail("write");
	if (rename(temporaryPath.c_str(), targetPath.c_str()) != 0)
		fail("write");
	committed = true;
}

void PendingFile::fail(const std::string& action) const
{
	throw runtimeError("cannot " + action + " " + role + " '" + targetPath +
	                   "': " + std::strerror(errno));
}

} // namespace velora_render
