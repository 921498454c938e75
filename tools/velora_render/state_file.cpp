#include "state_file.h"

#include "failure.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace velora_render {

std::vector<char> readStateFile(const std::string& path)
{
	std::error_code error;
	if (std::filesystem::is_directory(path, error))
		throw runtimeError("cannot read state '" + path + "': it is a directory");
	std::ifstream in(path, std::ios::binary);
	if (!in)
		throw runtimeError("cannot read state '" + path + "': " + std::strerror(errno));
	std::vector<char> bytes(kMaxStateBytes + 1);
	in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
	if (in.bad())
		throw runtimeError("cannot read state '" + path + "'");
	bytes.resize(static_cast<std::size_t>(in.gcount()));
	if (bytes.size() > kMaxStateBytes)
		throw runtimeError("'" + path + "' is not a saved state of the plug-in (too large)");
	return bytes;
}

} // namespace velora_render
