// A file that appears under its name only when it is complete: written to a
// temporary file beside the target and renamed over it on commit. Until then
// an existing target is untouched, and a pending file that is never committed
// is removed.
#pragma once

#include <string>

namespace velora_render {

class PendingFile
{
public:
	// Creates the temporary file; a runtime failure when the target's folder
	// cannot take it, the target is a folder, or an existing target is
	// write-protected. `what` names the file in messages ("output").
	PendingFile(const std::string& target, const std::string& what);
	~PendingFile();
	PendingFile(const PendingFile&) = delete;
	PendingFile& operator=(const PendingFile&) = delete;

	int descriptor() const { return fd; }
	const std::string& target() const { return targetPath; }

	// Writes all of `size` bytes at the current position.
	void write(const void* data, std::size_t size);
	// Flushes the data to disk, closes it and renames it over the target.
	void commit();

	// A runtime failure naming the file and the system's reason (errno).
	[[noreturn]] void fail(const std::string& action) const;

private:
	std::string targetPath;
	std::string role;
	std::string temporaryPath;
	int fd = -1;
	bool committed = false;
};

} // namespace velora_render
