// The keys of velora-scope's window: the cursor that each letter puts on the
// graph, named in the window, and the keys that act at once.
#pragma once

#include <string>
#include <vector>

class VGuiGraphControl;
class VGuiGraphCursor;

namespace velora_scope {

struct CursorKey
{
	char32_t key;
	const char* name;
	// A new cursor on the control's graph, the creator's reference.
	VGuiGraphCursor* (*make)(VGuiGraphControl& control);
};

constexpr char32_t kZoomAllKey = U'a';
constexpr char32_t kQuitKey = U'q';

const std::vector<CursorKey>& cursorKeys();
// The cursor of a key; null for other keys.
const CursorKey* cursorKey(char32_t key);
// One line per key, for --help.
std::string keyHelp();

} // namespace velora_scope
