// A text input's reading position, to come back to later: where it stands
// in its layout string and in its file.
#pragma once

#include <cstdint>

struct OsiTextInputState
{
	const char* formatPosition = nullptr; // into the input's layout string
	int32_t pending = 0;                  // characters still to skip
	long long filePosition = 0;
};
