// Saved plug-in states as files: the record's bytes as the plug-in wrote them.
#pragma once

#include <string>
#include <vector>

namespace velora_render {

// A plug-in record is a few hundred bytes; anything much larger is not one.
constexpr std::size_t kMaxStateBytes = 64 * 1024;

// The file's bytes; a runtime failure when it cannot be read or is too large
// to be a saved state.
std::vector<char> readStateFile(const std::string& path);

} // namespace velora_render
